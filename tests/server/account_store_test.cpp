#include "server/account_store.h"

#include "server_process.h"

#include <gtest/gtest.h>
#include <sqlite3.h>

namespace ombrin::server::test {

class AccountStoreTest : public testing::Test {
protected:
    std::string Path() const { return home / "accounts.sqlite"; }
    void Execute(const char* sql) const {
        sqlite3* database = nullptr;
        ASSERT_EQ(sqlite3_open(Path().c_str(), &database), SQLITE_OK);
        EXPECT_EQ(sqlite3_exec(database, sql, nullptr, nullptr, nullptr), SQLITE_OK);
        sqlite3_close(database);
    }

    Scratch home;
};

TEST_F(AccountStoreTest, AnAccountOutlivesTheServerAsItWasTyped) {
    {
        AccountStore store(Path());
        EXPECT_TRUE(store.Add({"J\xFCrgen \x8A", "h1"}));
    }
    AccountStore store(Path());
    EXPECT_EQ(store.Count(), 1U);
    const auto found = store.Find("j\xDCRGEN \x9A");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->name, "J\xFCrgen \x8A");
    EXPECT_EQ(found->passwordHash, "h1");
    EXPECT_FALSE(store.Add({"J\xDCRGEN \x8A", "h2"})) << "the same name in another case";
    EXPECT_EQ(store.Find("J\xFCrgen \x8A")->passwordHash, "h1");
    EXPECT_TRUE(store.Add({"Jurgen", "h3"}));
    EXPECT_EQ(store.Count(), 2U);
}

TEST_F(AccountStoreTest, ADatabaseOfTheFirstVersionKeepsItsAccountsAndTakesBuddies) {
    Execute("CREATE TABLE accounts (folded TEXT PRIMARY KEY, name TEXT NOT NULL, password_hash TEXT NOT NULL, "
            "created INTEGER NOT NULL DEFAULT (unixepoch())) WITHOUT ROWID;"
            "INSERT INTO accounts (folded, name, password_hash) VALUES ('ann', 'Ann', 'h'); PRAGMA user_version = 1");
    {
        AccountStore store(Path());
        EXPECT_EQ(store.Find("ann")->name, "Ann");
        store.AddBuddy("Ann", "J\xFCrgen");
        store.AddBuddy("ann", "J\xDCRGEN");
        store.AddBuddy("ann", "cid");
        store.AddBuddy("bob", "ann");
        store.RemoveBuddy("ANN", "Cid");
    }
    AccountStore store(Path());
    EXPECT_EQ(store.Buddies("aNN"), std::vector<std::string>{"J\xDCRGEN"});
}

TEST_F(AccountStoreTest, ANameIsNeverReadAsSql) {
    AccountStore store(Path());
    EXPECT_TRUE(store.Add({"x'); --", "h"}));
    EXPECT_FALSE(store.Find("' OR 1 --"));
    EXPECT_TRUE(store.Find("x'); --"));
}

TEST_F(AccountStoreTest, ADatabaseOfALaterVersionOrOfSomethingElseIsReported) {
    EXPECT_THROW(AccountStore(home / "no/such/folder"), StoreError);
    Execute("CREATE TABLE accounts (something TEXT)"); // version 0, yet not empty
    EXPECT_THROW(AccountStore{Path()}, StoreError);
    Execute("DROP TABLE accounts");
    { const AccountStore store(Path()); }
    Execute("PRAGMA user_version = 99");
    EXPECT_THROW(AccountStore{Path()}, StoreError);
}

} // namespace ombrin::server::test
