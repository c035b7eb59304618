#!/bin/sh
# Holds the man page against the program's help: man_page_test.sh COMMAND..., the words that run it. The commands, their
# long options and arguments, the exit statuses and the examples of the one are those of the other. Where a formatter is
# at hand, it has nothing to complain of. Prints what differs; exits 0 when nothing does.
set -u

if [ $# -eq 0 ]; then
    echo "usage: man_page_test.sh COMMAND..." >&2
    exit 2
fi

root=$(cd "$(dirname "$0")/../../.." && pwd) || exit 1
page=$root/docs/kelmora-host.1
work=$(mktemp -d) || exit 1
trap 'rm -rf "$work"' EXIT
status=0

# same WHAT: the page's lines, in $work/page, are the help's, in $work/help.
same() {
    diff "$work/help" "$work/page" >"$work/diff" || {
        echo "$1: < is the help's, > is the page's"
        grep '^[<>]' "$work/diff"
        status=1
    }
}

# items BEGIN: of the help on stdin, the first words of the lines below the line BEGIN, up to an empty line.
items() { awk -v begin="$1" '$0 == begin { inside = 1; next } $0 == "" { inside = 0 } inside && /^  [^ ]/ { print $1 }'; }

# arguments_of SECTION: of the page, the long options and the arguments in a section or subsection, one a line.
arguments_of() {
    awk -v section="$1" '
        $1 == ".Sh" || $1 == ".Ss" { inside = substr($0, 5) == section }
        inside && $1 == ".It" && ($2 == "Fl" || $2 == "Ar") {
            for (i = 2; i <= NF; ++i)
                if ($i ~ /^-[a-z]/) print "-" $i
            if ($2 == "Ar") print $3
        }' "$page" | sort
}

# some WHAT: there are lines in $work/help, or nothing was compared.
some() {
    [ -s "$work/help" ] || {
        echo "$1: the help has none"
        status=1
    }
}

# arguments COMMAND...: the same of the command's help, without --help itself.
arguments() {
    {
        "$@" --help | items 'Arguments:'
        "$@" --help | items 'Options:' | grep -o -e '--[a-z-]*'
    } | sort
}

"$@" --help >"$work/all" || status=1
items 'Commands:' <"$work/all" >"$work/help"
awk '$1 == ".Sh" { inside = $2 == "COMMANDS" } inside && $1 == ".Ss" { print $2 }' "$page" >"$work/page"
some "commands"
same "commands"
cp "$work/help" "$work/commands"
awk '$1 == ".Sh" { inside = $2 == "SYNOPSIS" } inside && $1 == ".Cm" { print $2 }' "$page" >"$work/page"
same "commands of the synopsis"

arguments "$@" >"$work/help"
arguments_of OPTIONS >"$work/page"
some "options"
same "options"

while read -r command; do
    arguments "$@" "$command" </dev/null | grep -v '^--help$' >"$work/help"
    arguments_of "$command" >"$work/page"
    same "arguments of $command"
    awk -v command="$command" '
        $1 == ".Nm" { inside = 0 }
        $1 == ".Cm" { inside = $2 == command }
        inside && NF > 1 && $1 != ".Cm" { for (i = 2; i <= NF; ++i) if ($i ~ /^-[a-z]/) print "-" $i }
        inside && $1 == ".Ar" { print $2 }
        inside && $2 == "Ar" { print $3 }' "$page" | sort >"$work/page"
    same "synopsis of $command"
done <"$work/commands"

items 'Exit status:' <"$work/all" | grep '^[0-9]' >"$work/help"
awk '$1 == ".Sh" { inside = $0 == ".Sh EXIT STATUS" } inside && $1 == ".It" { print $2 }' "$page" >"$work/page"
some "exit statuses"
same "exit statuses"

sed -n '/^Examples:$/,/^$/s/^  //p' "$work/all" >"$work/help"
sed -n '/^\.Sh EXAMPLES$/,/^\.Ed$/p' "$page" | grep '^kelmora-host ' >"$work/page"
some "examples"
same "examples"

# What the help says of documents that are always of one kind stands in the page and the README, too.
"$@" show --help | tr '\n' ' ' | grep -o 'those of [a-z_, ]*' >"$work/help"
some "documents of one kind"
for file in "$page" "$root/README.md"; do
    tr '\n' ' ' <"$file" | tr -d '`' | tr -s ' ' | grep -o 'those of [a-z_, ]*' | grep -F -x -f "$work/help" >"$work/page"
    same "documents of one kind in $file"
done

if command -v mandoc >/dev/null; then
    mandoc -T lint -W warning "$page" || status=1
fi
if command -v groff >/dev/null; then
    complaints=$(groff -mdoc -ww -z "$page" 2>&1)
    [ -z "$complaints" ] || {
        echo "$complaints"
        status=1
    }
fi
exit $status
