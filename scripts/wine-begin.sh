#!/bin/bash
# wine-begin.sh SECONDS PROGRAM ARGUMENTS...
#
# Runs a Windows program for at most SECONDS. The program makes the file that KEL_BEGUN names as soon as it begins: on a
# busy machine Wine has ended without running it, with no word and with 0. Then it is asked again, twice at most.
#
# Exit status: the program's; 124 when it took too long; 125 when Wine never ran it.
set -u

limit=$1
shift
begun=$(mktemp -u "${TMPDIR:-/tmp}/kel-begun.XXXXXX")
export KEL_BEGUN=Z:${begun//\//\\}
for try in first second third; do
  timeout "$limit" wine "$@"
  status=$?
  if [ -e "$begun" ]; then
    rm -f "$begun"
    exit $status
  fi
  echo "wine-begin: the $try time Wine ended with $status without running $1" >&2
  [ $status -ne 124 ] || exit 124
done
exit 125
