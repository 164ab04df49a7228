// Passwords by Argon2id on a few threads of their own. What waits is bounded by the connections: each has one request
// under way at most.
#pragma once

#include "server/passwords.h"

#include <condition_variable>
#include <deque>
#include <map>
#include <mutex>
#include <thread>
#include <vector>

namespace ombrin::server {

/// Jobs by origin; the origins take turns.
class FairQueue {
public:
    using Job = std::function<void()>;
    void Push(const std::string& origin, Job job);
    bool Empty() const { return turns.empty(); }
    /// The first job of the origin whose turn it is.
    Job Pop();

private:
    std::map<std::string, std::deque<Job>> jobs; ///< none is empty
    std::deque<std::string> turns;               ///< each origin of `jobs` once
};

class HashingPool : public Passwords {
public:
    struct Cost {
        std::size_t memoryKiB;
        unsigned long long passes;
    };
    /// Brings a callback back to the loop; called from the threads.
    using Post = std::function<void(std::function<void()>)>;

    HashingPool(Cost cost, unsigned threads, Post post);
    ~HashingPool() override;
    HashingPool(const HashingPool&) = delete;
    HashingPool& operator=(const HashingPool&) = delete;

    void Hash(const std::string& origin, std::string password,
              std::function<void(std::optional<std::string>)> done) override;
    void Verify(const std::string& origin, std::string password, std::string hash,
                std::function<void(bool)> done) override;

private:
    void Push(const std::string& origin, FairQueue::Job job);
    void Work();

    const Cost cost;
    const Post post;
    std::mutex mutex;
    std::condition_variable changed;
    FairQueue queue;     ///< guarded by the mutex
    bool ending = false; ///< guarded by the mutex
    std::vector<std::thread> threads;
};

} // namespace ombrin::server
