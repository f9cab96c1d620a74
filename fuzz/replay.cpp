// Runs a harness over the files of folders: replay_TOPIC FOLDER...
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <vector>

#include "fuzz/harness.h"

namespace fs = std::filesystem;

int main(int argc, char** argv) {
    std::vector<fs::path> files;
    for (int i = 1; i < argc; ++i) {
        if (!fs::exists(argv[i])) continue;
        for (const auto& entry : fs::directory_iterator(argv[i])) files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files) {
        std::cout << file.string() << std::endl;  // the last one printed is the one that failed
        std::ifstream in(file, std::ios::binary);
        const std::string bytes{std::istreambuf_iterator<char>(in), {}};
        ledgerwick::fuzz::fuzzOne(
            {reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
    }
    std::cout << files.size() << " inputs" << std::endl;
    return files.empty() ? 1 : 0;
}
