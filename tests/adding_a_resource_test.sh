#!/bin/sh
# adding_a_resource_test.sh: adds a small invented resource to a copy of the project, in the places that
# CONTRIBUTING.md names under "Adding a resource" and in no other, builds the copy and runs the tests that a resource
# has to pass. The copy is at build/adding-a-resource.
set -eu
cd "$(dirname "$0")/.."

root=$PWD
copy=$root/build/adding-a-resource
rm -rf "$copy"
mkdir -p "$copy"
tar -cf - --exclude=./build --exclude=./.git --exclude=./fuzz/corpus . | tar -xf - -C "$copy"
cd "$copy"

fail() {
    echo "adding_a_resource_test: $*" >&2
    exit 1
}

# change FILE PATTERN LINE...: puts lines in front of the first line that matches the pattern.
change() {
    file=$1
    pattern=$2
    shift 2
    grep -q -- "$pattern" "$file" || fail "$file has no line for $pattern"
    printf '%s\n' "$@" >added.txt
    awk -v pattern="$pattern" '
        !done && $0 ~ pattern { while ((getline line < "added.txt") > 0) print line; done = 1 }
        { print }' "$file" >changed.txt
    rm added.txt
    cat changed.txt >"$file"
    rm changed.txt
}

number=$(grep -c '^    ROW(' include/kelmora_resources.h)

# The list of resources: behind the last row.
sed -i "s/^\(    ROW($((number - 1)), .*)\)\$/\1 \\\\/" include/kelmora_resources.h
change include/kelmora_resources.h '^/\* clang-format on \*/$' "    ROW($number, beacon, diagnostics, both)"

# Its record, and the layout of that.
change include/records/diagnostics.h '^#endif$' \
    '/* A lamp that blinks for whoever looks for the device. */' \
    'struct kelmora_beacon {' \
    '    uint8_t enabled;   /* blinking */' \
    '    uint16_t interval; /* pause between two flashes, in milliseconds */' \
    '    char label[17];    /* what to look for */' \
    '};' \
    ''
cat >>tests/include/records/diagnostics_layout.cpp <<'EOT'

EXPECT_FIELD(kelmora_beacon, enabled, std::uint8_t, 0);
EXPECT_FIELD(kelmora_beacon, interval, std::uint16_t, 2);
EXPECT_FIELD(kelmora_beacon, label, char[17], 4);
static_assert(sizeof(kelmora_beacon) == 22);
EOT

# Its unit, and the tests of that.
cat >translators/diagnostics/beacon.cpp <<'EOT'
#include "frame/translator.h"
#include "records/diagnostics.h"

using namespace kelmora;

namespace {

void to_json(Encoder &out, const kelmora_beacon &beacon, const NodeId &id)
{
    out.string("id", id);
    out.boolean("enabled", beacon.enabled);
    out.integer("interval", beacon.interval);
    out.string("label", beacon.label);
}

void from_json(Decoder &in, kelmora_beacon &beacon)
{
    in.required_boolean("enabled"_key, beacon.enabled);
    in.required_integer("interval"_key, beacon.interval);
    in.required_string("label"_key, beacon.label);
}

} // namespace

int beacon_to_translator(kelmora_resource *head, char **out)
{
    return encode<to_json>(head, out, Nodes::counting, Flags::plain);
}

int beacon_from_translator(kelmora_resource *node, const char *text, kelmora_errorlist *errors)
{
    return decode<from_json>(node, text, errors);
}
EOT
cat >tests/translators/diagnostics/beacon_test.cpp <<'EOT'
#include "tests/support/from_test.h"
#include "tests/support/to_test.h"

#include "kelmora_json.h"
#include "records/diagnostics.h"

namespace kelmora_test {

namespace {

class BeaconTo : public ToTest<kelmora_beacon> {
protected:
    BeaconTo() : ToTest(beacon_to_translator) {}
};

TEST_F(BeaconTo, WritesTheKeysInOrder)
{
    add("lamp", {.enabled = 1, .interval = 500, .label = "attic"});
    EXPECT_EQ(object(), R"({"id": "lamp", "enabled": true, "interval": 500, "label": "attic"})");
}

constexpr char document[] = R"({"enabled": true, "interval": 65535, "label": "cellar"})";

class BeaconFrom : public FromTest<kelmora_beacon> {
protected:
    BeaconFrom() : FromTest(beacon_from_translator, document) {}
};

TEST_F(BeaconFrom, StoresEveryKey)
{
    EXPECT_TRUE(accepts(document));
    EXPECT_EQ(record().enabled, 1);
    EXPECT_EQ(record().interval, 65535);
    EXPECT_STREQ(record().label, "cellar");
}

TEST_F(BeaconFrom, AsksForTheRequiredKeysInOrder)
{
    expect_required_in_order({
        {"enabled", "enabled", "enabled field not found"},
        {"interval", "interval", "interval field not found"},
        {"label", "label", "label field not found"},
    });
}

} // namespace

} // namespace kelmora_test
EOT
change tests/every_resource/shapes_test.cpp '^    {"radio", ' \
    '    {"beacon", Entries::counted, AtZero::as_ever, Root::by_list_flag, plain, Id::own},'

# The interface, and what people see.
{
    sed '/_translator$/d' abi/exports.txt
    {
        sed -n '/_translator$/p' abi/exports.txt
        printf 'beacon_from_translator\nbeacon_to_translator\n'
    } | LC_ALL=C sort
} >changed.txt
mv changed.txt abi/exports.txt
change host/gateway/samples/diagnostics.cpp '^void add_diagnostics_samples' \
    'namespace {' \
    'constexpr kelmora_beacon lamp{.enabled = 1, .interval = 500, .label = "attic"};' \
    '} // namespace' \
    ''
awk '{ print } /^void add_diagnostics_samples/ { getline; print; print "    gateway.add(\"beacon\", \"lamp\", lamp);" }' \
    host/gateway/samples/diagnostics.cpp >changed.txt
mv changed.txt host/gateway/samples/diagnostics.cpp
printf '{\n    "enabled": false,\n    "interval": 250,\n    "label": "cellar"\n}\n' >examples/beacon.json

# What is made of the headers.
/usr/bin/python3 -B scripts/generate_fields.py

# Nearly every source sees the list of resources, so they are compiled several in one.
mkdir build
cmake --preset release -DCMAKE_UNITY_BUILD=ON -DCMAKE_UNITY_BUILD_BATCH_SIZE=16 -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON \
    >build.log 2>&1
programs="frame_tests diagnostics_tests every_resource_tests host_tests"
# shellcheck disable=SC2086 # names are words
sh scripts/build.sh release kelmora_json kelmora-host headers_c headers_cxx11 headers_cxx20 robustness_tests \
    $programs >>build.log 2>&1 || {
    tail -n 40 build.log >&2
    fail "does not build"
}
tests="$programs abi completeness kelmora-host"
for name in $tests; do
    ctest --test-dir build/release -N -R "^$name\$" | grep -q '^Total Tests: 1$' || fail "no test $name"
done
# Without the random documents, which are for resources that have a model, and long.
GTEST_FILTER='-*RandomDocuments*' ctest --test-dir build/release --output-on-failure -j 2 -R "^($(echo "$tests" | tr ' ' '|'))\$"

# What is done to each resource, to this one alone.
build/release/tests/robustness_tests --gtest_filter='*beacon*' >robustness.log 2>&1 || {
    cat robustness.log >&2
    fail "does not survive what other resources do"
}
grep -q '^\[  PASSED  \] [1-9]' robustness.log || fail "robustness_tests have no test of it"
kelmora_host=build/release/kelmora-host
$kelmora_host show beacon --id lamp | grep -q '"interval": 500, "label": "attic"}' || fail "kelmora-host shows no beacon"

# Its contract is learned with no line more, and its schemas and types are made of that.
$kelmora_host describe beacon | grep -Eq '^interval +integer +0..65535 +yes +uint16_t interval$' ||
    fail "kelmora-host describes no beacon"
sh scripts/make_contract_files.sh
grep -q '"maximum": 65535' schemas/beacon.input.schema.json || fail "there is no schema of a beacon"
grep -q '^export interface BeaconInput {$' types/kelmora.d.ts || fail "there is no type of a beacon"
