#include "host/cli/cli.h"

#include <iostream>

int main(int argc, char **argv) { return kelmora_host::run(argc, argv, std::cout, std::cerr); }
