// Runs a fuzz target over files instead of libFuzzer: what once failed stays tried with every compiler.
#include "fuzz_target.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

int main(int count, char** arguments) {
    std::size_t inputs = 0;
    for (int i = 1; i < count; ++i) {
        for (const auto& entry : std::filesystem::directory_iterator(arguments[i])) {
            std::cout << entry.path().filename().string()
                      << std::endl; // before the run: the last line names the culprit
            std::ifstream file(entry.path(), std::ios::binary);
            ombrin::fuzz::Try(std::string{std::istreambuf_iterator<char>(file), {}});
            ++inputs;
        }
    }
    return inputs > 0 ? 0 : 1;
}
