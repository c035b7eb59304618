// Writes the header of static assertions into a file, for the build, which installs it. It needs none of the libraries
// that the development host needs, so that the header is there as well where the plug-in alone is built.

#include "host/contract/layout.h"

#include <fstream>

int main(int argc, char **argv)
{
    if (argc != 2)
        return 2;
    std::ofstream file(argv[1]);
    file << kelmora_host::layout_header();
    return file.flush() ? 0 : 1;
}
