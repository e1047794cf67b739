"""What scripts/coverage and scripts/mutants are made of."""
