#!/bin/sh
# Which lines and branches of frame/ and translators/ the unit tests run. Prints what is missing and writes
# build/coverage/coverage.html; fails when a line never runs, or more than 5 % of the branches.
set -eu
cd "$(dirname "$0")/.."

command -v gcovr >/dev/null || {
    echo "coverage: gcovr is missing; scripts/install-dependencies.sh installs it" >&2
    exit 1
}

sh scripts/build.sh coverage
find build/coverage -name '*.gcda' -delete # they would add up
ctest --preset coverage >build/coverage/tests.log || {
    cat build/coverage/tests.log >&2
    exit 1
}

gcovr --gcov-executable "sh $PWD/scripts/gcov.sh" --root . --filter frame/ --filter translators/ \
    --exclude-unreachable-branches --exclude-throw-branches --json build/coverage/coverage.json \
    build/coverage/CMakeFiles/kelmora_json_objects.dir build/coverage/tests/CMakeFiles/frame_tests.dir
gcovr --root . --add-tracefile build/coverage/coverage.json --html-details build/coverage/coverage.html
gcovr --root . --add-tracefile build/coverage/coverage.json --txt
gcovr --root . --add-tracefile build/coverage/coverage.json --txt --branches --print-summary \
    --fail-under-line 100 --fail-under-branch 95
