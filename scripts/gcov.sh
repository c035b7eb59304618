#!/bin/sh
# gcov as gcovr 5 can use it: by their demangled names it takes functions of different units for one, and gives up.
for argument in "$@"; do
    shift
    [ "$argument" = --demangled-names ] || set -- "$@" "$argument"
done
exec gcov "$@"
