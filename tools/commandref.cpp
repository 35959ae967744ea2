// talven_commandref [FILE]          writes the command reference to FILE (standard output without)
// talven_commandref --check FILE    fails when FILE differs from what would be written now
#include "CommandReference.h"

#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>

int main(int argc, char** argv) {
    const bool check = argc == 3 && std::strcmp(argv[1], "--check") == 0;
    if (argc > 2 && !check) {
        std::cerr << "usage: talven_commandref [FILE] | --check FILE\n";
        return 2;
    }
    const std::string reference = tools::commandReference();
    if (argc == 1) {
        std::cout << reference;
        return 0;
    }
    const char* path = argv[argc - 1];
    if (check) {
        std::ifstream in(path, std::ios::binary);
        std::ostringstream committed;
        committed << in.rdbuf();
        if (in && committed.str() == reference) return 0;
        std::cerr << path << " is out of date: run `talven_commandref " << path << "` and commit it.\n";
        return 1;
    }
    std::ofstream out(path, std::ios::binary);
    out << reference;
    return out ? 0 : 1;
}
