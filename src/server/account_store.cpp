#include "server/account_store.h"

#include "foundation/code_page.h"
#include "foundation/text.h"
#include "server/names.h"

#include <array>
#include <sqlite3.h>

namespace ombrin::server {

namespace {

/// Step n brings a database of version n to n + 1. A step that was once released never changes.
constexpr std::array kMigrations{
    "CREATE TABLE accounts ("
    "  folded TEXT PRIMARY KEY,"
    "  name TEXT NOT NULL,"
    "  password_hash TEXT NOT NULL,"
    "  created INTEGER NOT NULL DEFAULT (unixepoch())"
    ") WITHOUT ROWID",
    "CREATE TABLE buddies ("
    "  owner TEXT NOT NULL," // folded
    "  folded TEXT NOT NULL,"
    "  name TEXT NOT NULL,"
    "  PRIMARY KEY (owner, folded)"
    ") WITHOUT ROWID",
};

/// Milliseconds: an operator's look into the database may delay the service this long, no longer.
constexpr int kBusyTimeout = 200;

/// Gives a statement back for its next use, however its present one ends.
class Use {
public:
    explicit Use(sqlite3_stmt* statement) : statement(statement) {}
    ~Use() {
        sqlite3_reset(statement);
        sqlite3_clear_bindings(statement);
    }
    Use(const Use&) = delete;
    Use& operator=(const Use&) = delete;

private:
    sqlite3_stmt* statement;
};

std::string Column(sqlite3_stmt* statement, int index) {
    const void* bytes = sqlite3_column_blob(statement, index);
    const int size = sqlite3_column_bytes(statement, index);
    return bytes == nullptr ? std::string()
                            : std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
}

std::string Utf8(std::string_view text) { return CodePage::Usual().ToUtf8(text); }

} // namespace

void AccountStore::CloseDatabase::operator()(sqlite3* open) const { sqlite3_close(open); }
void AccountStore::Finalize::operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }

AccountStore::AccountStore(const std::string& path) {
    sqlite3* opened = nullptr;
    const int result = sqlite3_open_v2(path.c_str(), &opened, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, nullptr);
    database.reset(opened);
    if (result != SQLITE_OK) Fail("opening");
    sqlite3_busy_timeout(opened, kBusyTimeout);
    // A power cut may cost the last accounts, never the database; waiting for the disk would stop everybody.
    Execute("PRAGMA journal_mode = WAL; PRAGMA synchronous = NORMAL");
    Migrate();
    find = Prepare("SELECT name, password_hash FROM accounts WHERE folded = ?1");
    add = Prepare("INSERT INTO accounts (folded, name, password_hash) VALUES (?1, ?2, ?3)");
    listBuddies = Prepare("SELECT name FROM buddies WHERE owner = ?1");
    addBuddy = Prepare("INSERT OR REPLACE INTO buddies (owner, folded, name) VALUES (?1, ?2, ?3)");
    removeBuddy = Prepare("DELETE FROM buddies WHERE owner = ?1 AND folded = ?2");
    stored = ReadNumber("SELECT count(*) FROM accounts");
}

AccountStore::~AccountStore() = default;

std::optional<Account> AccountStore::Find(std::string_view name) {
    const Use use(find.get());
    BindName(find, 1, name);
    const int result = sqlite3_step(find.get());
    if (result == SQLITE_DONE) return std::nullopt;
    if (result != SQLITE_ROW) Fail("looking up an account");
    return Account{NameIn(find), Column(find.get(), 1)};
}

bool AccountStore::Add(const Account& account) {
    const Use use(add.get());
    BindName(add, 1, account.name);
    Bind(add, 2, Utf8(account.name));
    Bind(add, 3, account.passwordHash);
    const int result = sqlite3_step(add.get());
    if (result == SQLITE_CONSTRAINT) return false;
    if (result != SQLITE_DONE) Fail("adding an account");
    ++stored;
    return true;
}

std::vector<std::string> AccountStore::Buddies(std::string_view owner) {
    const Use use(listBuddies.get());
    BindName(listBuddies, 1, owner);
    std::vector<std::string> names;
    int result = SQLITE_ROW;
    while ((result = sqlite3_step(listBuddies.get())) == SQLITE_ROW) names.push_back(NameIn(listBuddies));
    if (result != SQLITE_DONE) Fail("reading buddies");
    return names;
}

void AccountStore::AddBuddy(std::string_view owner, std::string_view buddy) {
    const Use use(addBuddy.get());
    BindName(addBuddy, 1, owner);
    BindName(addBuddy, 2, buddy);
    Bind(addBuddy, 3, Utf8(buddy));
    if (sqlite3_step(addBuddy.get()) != SQLITE_DONE) Fail("adding a buddy");
}

void AccountStore::RemoveBuddy(std::string_view owner, std::string_view buddy) {
    const Use use(removeBuddy.get());
    BindName(removeBuddy, 1, owner);
    BindName(removeBuddy, 2, buddy);
    if (sqlite3_step(removeBuddy.get()) != SQLITE_DONE) Fail("removing a buddy");
}

std::size_t AccountStore::ReadNumber(std::string_view sql) {
    const Statement read = Prepare(sql);
    if (sqlite3_step(read.get()) != SQLITE_ROW) Fail("reading a number");
    return static_cast<std::size_t>(sqlite3_column_int64(read.get(), 0));
}

void AccountStore::Execute(const char* sql) {
    if (sqlite3_exec(database.get(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) Fail("preparing the database");
}

void AccountStore::Migrate() {
    std::size_t version = ReadNumber("PRAGMA user_version");
    if (version > kMigrations.size()) throw StoreError("accounts: the database was written by a later version");
    for (; version < kMigrations.size(); ++version)
        Execute(Join("BEGIN IMMEDIATE; ", kMigrations[version], "; PRAGMA user_version = ", std::to_string(version + 1),
                     "; COMMIT")
                    .c_str());
}

AccountStore::Statement AccountStore::Prepare(std::string_view sql) {
    sqlite3_stmt* statement = nullptr;
    if (sqlite3_prepare_v3(database.get(), sql.data(), static_cast<int>(sql.size()), SQLITE_PREPARE_PERSISTENT,
                           &statement, nullptr) != SQLITE_OK)
        Fail("preparing a statement");
    return Statement(statement);
}

/// In the form in which names are compared.
void AccountStore::BindName(const Statement& statement, int index, std::string_view name) {
    Bind(statement, index, Utf8(Folded(name)));
}

/// The first column of the row that stands there.
std::string AccountStore::NameIn(const Statement& statement) {
    const auto name = CodePage::Usual().FromUtf8(Column(statement.get(), 0));
    if (!name) throw StoreError("accounts: a name in the database is no text of the code page");
    return *name;
}

void AccountStore::Bind(const Statement& statement, int index, std::string_view text) {
    if (sqlite3_bind_text64(statement.get(), index, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8) !=
        SQLITE_OK)
        Fail("binding a value");
}

void AccountStore::Fail(std::string_view doing) {
    throw StoreError(
        Join("accounts: ", doing, ": ", std::string_view(database ? sqlite3_errmsg(database.get()) : "out of memory")));
}

} // namespace ombrin::server
