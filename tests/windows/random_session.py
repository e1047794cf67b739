#!/usr/bin/env python3
"""Prints a UI script of random keys, always the same for the same seed.

usage: random_session.py SEED KEYS
"""
import random
import sys

# A key and how often it is pressed. Esc and Home are rare enough to get deep into the menus.
MENU_KEYS = [("Down", 14), ("Up", 8), ("Enter", 14), ("Esc", 5), ("Home", 1), ("Tab", 2), ("ShiftTab", 1),
             ("Insert", 1), ("F1", 1), ("Left", 2), ("Right", 2), ("PageDown", 1), ("PageUp", 1), ("End", 1),
             ("Backspace", 2), ("Delete", 2)]
DIGITS = [(digit, 3) for digit in "123456789"] + [("0", 2)]
LETTERS = [("a", 1), ("F", 1), ("x", 1), ("Q", 1)]


def main():
    seed, keys = int(sys.argv[1]), int(sys.argv[2])
    source = random.Random(seed)
    names, weights = zip(*(MENU_KEYS + DIGITS + LETTERS))
    print(f"# Random keys of seed {seed}.")
    print("wait")
    # A first step into a menu: most keys at the root only move.
    print(f"key {source.randint(1, 9)}")
    for name in source.choices(names, weights, k=keys - 1):
        print(f"key {name}")
        print("dump")
    print("wait\neffects\ndebug")


main()
