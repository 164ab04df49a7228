// Accounts and lists of buddies on the disk. Names are unique without regard to case and kept as typed; of passwords
// there are hashes.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;

namespace ombrin::server {

class StoreError : public std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct Account {
    std::string name;
    std::string passwordHash;
};

class AccountStore {
public:
    /// Opens or creates; ":memory:" keeps it in memory. Raises StoreError when that fails, or when the file was
    /// written by a later version.
    explicit AccountStore(const std::string& path);
    ~AccountStore();
    AccountStore(const AccountStore&) = delete;
    AccountStore& operator=(const AccountStore&) = delete;

    /// Without regard to case.
    std::optional<Account> Find(std::string_view name);
    /// False when the name is taken.
    bool Add(const Account& account);
    std::size_t Count() const { return stored; }

    /// The owner need not have an account; nor need a buddy.
    std::vector<std::string> Buddies(std::string_view owner);
    /// A name that is listed already gets this spelling.
    void AddBuddy(std::string_view owner, std::string_view buddy);
    void RemoveBuddy(std::string_view owner, std::string_view buddy);

private:
    struct CloseDatabase {
        void operator()(sqlite3* database) const;
    };
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };
    using Statement = std::unique_ptr<sqlite3_stmt, Finalize>;

    void Execute(const char* sql);
    void Migrate();
    std::size_t ReadNumber(std::string_view sql);
    Statement Prepare(std::string_view sql);
    void BindName(const Statement& statement, int index, std::string_view name);
    std::string NameIn(const Statement& statement);
    void Bind(const Statement& statement, int index, std::string_view text);
    [[noreturn]] void Fail(std::string_view doing);

    std::unique_ptr<sqlite3, CloseDatabase> database;
    Statement find;
    Statement add;
    Statement listBuddies;
    Statement addBuddy;
    Statement removeBuddy;
    std::size_t stored = 0; ///< counted once: counting walks the whole table
};

} // namespace ombrin::server
