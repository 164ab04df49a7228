// Programs of the machine, which are played by scripts that tell what they were started with.
#pragma once

#include "../support/scratch.h"
#include "platform/waiter.h"

#include <chrono>
#include <fstream>
#include <gtest/gtest.h>
#include <thread>

namespace ombrin {

struct PlayedPrograms : testing::Test, Waiter {
    Scratch scratch;
    const std::string path = std::getenv("PATH");

    ~PlayedPrograms() override { setenv("PATH", path.c_str(), 1); }

    /// A program that tells, as a whole, what the shell makes of these commands.
    void Program(const std::string& name, const std::string& commands) {
        const std::string file = scratch / name, seen = scratch / "seen";
        std::filesystem::create_directories(std::filesystem::path(file).parent_path());
        std::ofstream(file) << "#!/bin/sh\n{ " + commands + "; } > " + seen + ".new\n/bin/mv " + seen + ".new " + seen +
                                   "\n";
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
    }
    /// What a program has told, its lines joined by "," and its paths without the scratch folder.
    std::string Seen(std::chrono::seconds patience = std::chrono::seconds(20)) {
        const auto end = std::chrono::steady_clock::now() + patience;
        while (!std::filesystem::exists(scratch / "seen") && std::chrono::steady_clock::now() < end)
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        std::ifstream file(scratch / "seen");
        std::string all;
        for (std::string line; std::getline(file, line);) all += (all.empty() ? "" : ",") + line;
        std::filesystem::remove(scratch / "seen");
        for (std::size_t at = 0; (at = all.find(scratch / "")) != std::string::npos;)
            all.erase(at, scratch.path.size() + 1);
        return all;
    }

    void RunUntil(const bool&) override {}
    void Block(Milliseconds time) override { std::this_thread::sleep_for(time); }
    void Breathe() override {}
};

} // namespace ombrin
