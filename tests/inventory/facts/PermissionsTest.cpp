// Permission databases of every generation, and such as no Mac writes.
#include "inventory/facts/Permissions.h"

#include "inventory/facts/FactFixtures.h"
#include "support/TemporaryFolder.h"

#include <gmock/gmock.h>

#include <chrono>

namespace pryvane::test {

namespace {

using testing::HasSubstr;

/// "service client[=path] decision reason when >target managed" of a row, as far as they are there.
std::string textOf(const Permission& row)
{
    constexpr const char* kDecisions[] = {"unknown", "denied", "allowed", "limited"};
    std::string text = row.service + " " + row.client + (row.clientIsPath ? "=path " : " ") +
                       kDecisions[static_cast<std::size_t>(row.decision)];
    if (row.reason)
        text += " " + std::to_string(*row.reason);
    if (row.when)
        text += " " + iso8601(*row.when).substr(0, 10);
    if (!row.target.empty())
        text += " >" + row.target;
    return text + (row.managed ? " managed" : "");
}

std::vector<std::string> rowsOf(const std::string& bytes)
{
    const auto read = readPermissions(bytes);
    if (!read)
        return {read.error().message};
    std::vector<std::string> rows;
    for (const Permission& row : read->entries)
        rows.push_back(textOf(row));
    if (!read->problem.empty())
        rows.push_back(read->problem);
    return rows;
}

const std::string kOld = "service TEXT, client TEXT, client_type INTEGER, allowed INTEGER, "
                         "prompt_count INTEGER, csreq BLOB";
const std::string kNew =
    "service TEXT, client TEXT, client_type INTEGER, auth_value INTEGER, auth_reason INTEGER, "
    "auth_version INTEGER, csreq BLOB, policy_id INTEGER, indirect_object_identifier_type INTEGER, "
    "indirect_object_identifier TEXT DEFAULT 'UNUSED', indirect_object_code_identity BLOB, "
    "flags INTEGER, last_modified INTEGER";

std::string table(const std::string& columns, const std::string& rows)
{
    return "CREATE TABLE access (" + columns + "); INSERT INTO access " + rows + ";";
}

} // namespace

TEST(Permissions, EveryGenerationIsRead)
{
    const struct {
        const char* system;
        std::string sql;
        std::vector<std::string> rows;
    } generations[] = {
        {"10.10",
         table(kOld, "VALUES ('kTCCServiceAccessibility','/opt/.k/k',1,1,1,NULL),"
                     "('kTCCServiceAddressBook','com.a',0,0,1,x'00')"),
         {"kTCCServiceAccessibility /opt/.k/k=path allowed",
          "kTCCServiceAddressBook com.a denied"}},
        {"10.13",
         table(kOld + ", policy_id INTEGER", "VALUES ('s','c',0,1,1,NULL,NULL)"),
         {"s c allowed"}},
        {"10.15",
         table(kOld + ", policy_id INTEGER, indirect_object_identifier_type INTEGER, "
                      "indirect_object_identifier TEXT, indirect_object_code_identity BLOB, "
                      "flags INTEGER, last_modified INTEGER",
               "VALUES ('s','c',0,1,1,NULL,NULL,NULL,'UNUSED',NULL,0,1590754191),"
               "('kTCCServiceAppleEvents','c',0,0,1,NULL,NULL,0,'com.apple.finder',NULL,0,0)"),
         {"s c allowed 2020-05-29", "kTCCServiceAppleEvents c denied >com.apple.finder"}},
        {"11",
         table(kNew, "(service,client,client_type,auth_value,auth_reason,last_modified) VALUES "
                     "('a','c',0,2,3,1700000000),('b','c',0,0,6,NULL),('c','c',0,3,4,NULL),"
                     "('d','c',0,1,5,NULL),('e','c',0,7,99,-5),('f','c',0,'x','y','z')"),
         {"a c allowed 3 2023-11-14", "b c denied 6", "c c limited 4", "d c unknown 5",
          "e c unknown 99", "f c unknown"}},
        {"14",
         table(kNew + ", pid INTEGER, pid_version INTEGER, boot_uuid TEXT DEFAULT 'UNUSED', "
                      "last_reminded INTEGER",
               "(service,client,client_type,auth_value,auth_reason) VALUES ('a','c',0,2,2)"),
         {"a c allowed 2"}},
        {"27",
         table(kNew + ", pid INTEGER, one_time_reprompt_eligible INTEGER, reminder_count "
                      "INTEGER",
               "(service,client,client_type,auth_value,auth_reason) VALUES ('a','c',0,2,2)") +
             "CREATE TABLE managed_overrides (" + kNew +
             ", admin_auth_value INTEGER);"
             "INSERT INTO managed_overrides (service,client,client_type,auth_value,"
             "admin_auth_value) VALUES ('m','c',0,0,2);",
         {"a c allowed 2", "m c allowed managed"}},
        {"with columns of a system to come",
         table("extra BLOB, " + kNew + ", more TEXT",
               "(extra,service,client,client_type,auth_value) VALUES (1,'a','c',1,2)"),
         {"a c=path allowed"}},
        {"without rows", "CREATE TABLE access (" + kNew + ");", {}},
    };
    for (const auto& row : generations)
        EXPECT_EQ(rowsOf(databaseOf(row.sql)), row.rows) << row.system;
}

TEST(Permissions, WhatIsNotUnderstoodIsSaid)
{
    const std::string whole =
        databaseOf(table(kNew, "(service,client,auth_value) VALUES ('a','c',2)"));
    std::string broken = whole, waiting = whole;
    broken.replace(4096 + 3, 2, "\xff\xff"); // the number of cells on the table's page
    waiting[18] = waiting[19] = 2;
    const struct {
        const char* what;
        std::string bytes;
        const char* said;
    } rows[] = {
        {"empty", "", "not understood"},
        {"no database", std::string(4096, 'x'), "not understood"},
        {"head alone", whole.substr(0, 100), "not understood"},
        {"no table", databaseOf("CREATE TABLE other (a);"), "no table \"access\""},
        {"a view in its place",
         databaseOf("CREATE TABLE t (service,client,auth_value); INSERT INTO t VALUES ('a','c',2);"
                    "CREATE VIEW access AS SELECT * FROM t;"),
         "no table \"access\""},
        {"other columns", databaseOf("CREATE TABLE access (who TEXT, what TEXT);"),
         "other columns"},
        {"a broken page", broken, "malformed"},
        {"a log that waits does not hide the database", waiting, "a c allowed"},
    };
    for (const auto& row : rows)
        EXPECT_THAT(rowsOf(row.bytes), testing::Contains(HasSubstr(row.said))) << row.what;
}

TEST(Permissions, HostileDatabasesEndInTime)
{
    const auto started = std::chrono::steady_clock::now();
    const std::string create = "CREATE TABLE access (" + kNew + "); ";
    const struct {
        const char* what;
        std::string sql;
        std::size_t most; ///< rows that may come of it
        bool whole;       ///< whether it is read without a word of what is left out
    } rows[] = {
        {"more rows than any Mac's",
         create +
             "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i+1 FROM n LIMIT 30000) INSERT "
             "INTO access(service,client,auth_value) SELECT 's','c'||i,2 FROM n;",
         kMostFactsOfASource, false},
        {"a text of 200 KB is shortened, one of 3 MB refused",
         table(kNew, "(service,client,auth_value) VALUES ('a',printf('%.*c',200000,'x'),2),"
                     "('b',printf('%.*c',3000000,'x'),2)"),
         1, false},
        {"columns that are computed could run for ever: they are not run at all",
         "CREATE TABLE access (service TEXT, client AS (replace(hex(zeroblob(100000)),'0','xx')), "
         "auth_value INTEGER); INSERT INTO access(service,auth_value) VALUES ('a',2);",
         0, false},
        {"nor is a trigger",
         create + "CREATE TRIGGER t BEFORE INSERT ON access BEGIN SELECT 1; END; INSERT INTO "
                  "access(service,client,auth_value) VALUES ('a','c',2);",
         1, true},
    };
    for (const auto& row : rows) {
        const auto read = readPermissions(databaseOf(row.sql));
        const bool whole = read && read->problem.empty();
        EXPECT_EQ(whole, row.whole) << row.what;
        EXPECT_EQ(read ? read->entries.size() : 0, row.most) << row.what;
        EXPECT_TRUE(!read || read->entries.empty() ||
                    read->entries[0].client.size() <= kLongestFactText + 3);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - started, std::chrono::seconds(60));
}

} // namespace pryvane::test
