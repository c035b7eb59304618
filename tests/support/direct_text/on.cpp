#include "tests/support/direct_text.h"

const bool kelmora_test::direct_text = true;
