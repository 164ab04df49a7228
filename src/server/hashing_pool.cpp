#include "server/hashing_pool.h"

#include <array>
#include <sodium.h>

namespace ombrin::server {

void FairQueue::Push(const std::string& origin, Job job) {
    std::deque<Job>& waiting = jobs[origin];
    if (waiting.empty()) turns.push_back(origin);
    waiting.push_back(std::move(job));
}

FairQueue::Job FairQueue::Pop() {
    std::string origin = std::move(turns.front());
    turns.pop_front();
    const auto found = jobs.find(origin);
    Job job = std::move(found->second.front());
    found->second.pop_front();
    if (found->second.empty())
        jobs.erase(found);
    else
        turns.push_back(std::move(origin));
    return job;
}

HashingPool::HashingPool(Cost cost, unsigned count, Post post) : cost(cost), post(std::move(post)) {
    for (unsigned i = 0; i < count; ++i) threads.emplace_back([this] { Work(); });
}

HashingPool::~HashingPool() {
    {
        const std::lock_guard lock(mutex);
        ending = true;
    }
    changed.notify_all();
    for (std::thread& thread : threads) thread.join();
}

void HashingPool::Hash(const std::string& origin, std::string password,
                       std::function<void(std::optional<std::string>)> done) {
    Push(origin, [this, password = std::move(password), done = std::move(done)]() mutable {
        constexpr std::size_t kBytesPerKiB = 1024;
        std::array<char, crypto_pwhash_STRBYTES> hash{};
        const bool made = crypto_pwhash_str_alg(hash.data(), password.data(), password.size(), cost.passes,
                                                cost.memoryKiB * kBytesPerKiB, crypto_pwhash_ALG_ARGON2ID13) == 0;
        auto result = made ? std::optional<std::string>(hash.data()) : std::nullopt;
        post([done = std::move(done), result = std::move(result)] { done(result); });
    });
}

void HashingPool::Verify(const std::string& origin, std::string password, std::string hash,
                         std::function<void(bool)> done) {
    Push(origin, [this, password = std::move(password), hash = std::move(hash), done = std::move(done)]() mutable {
        const bool right = crypto_pwhash_str_verify(hash.c_str(), password.data(), password.size()) == 0;
        post([done = std::move(done), right] { done(right); });
    });
}

void HashingPool::Push(const std::string& origin, FairQueue::Job job) {
    {
        const std::lock_guard lock(mutex);
        queue.Push(origin, std::move(job));
    }
    changed.notify_one();
}

void HashingPool::Work() {
    std::unique_lock lock(mutex);
    while (true) {
        changed.wait(lock, [this] { return ending || !queue.Empty(); });
        if (ending) return;
        const FairQueue::Job job = queue.Pop();
        lock.unlock();
        job();
        lock.lock();
    }
}

} // namespace ombrin::server
