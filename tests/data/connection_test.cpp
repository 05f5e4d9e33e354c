// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

#include "data/connection.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <string>

#include "data/data_failure.h"
#include "data_fixture.h"
#include "support/timed.h"

namespace tonalith::data {
namespace {

namespace fs = std::filesystem;

std::string OpenFailure(const std::string& path) {
  return FailureOf([&] { Connection().Open(FullConnectionString(path)); }).Description();
}

// Runs `step` in a child process as a user without root permissions. Returns the result of the step: empty if all is as
// expected, otherwise the error.
template <class Step>
std::string AsNobody(Step step) {
  int channel[2];
  if (::pipe(channel) != 0) return "no pipe";
  const pid_t child = ::fork();
  if (child == 0) {
    std::string result;
    const bool isNobody =
        ::geteuid() != 0 || (::setgroups(0, nullptr) == 0 && ::setgid(65534) == 0 && ::setuid(65534) == 0);
    if (!isNobody) result = "cannot become nobody";
    try {
      if (result.empty()) result = step();
    } catch (const std::exception& exception) {
      result = std::string("unexpected: ") + exception.what();
    }
    const ssize_t written = ::write(channel[1], result.data(), result.size());
    ::_exit(written == static_cast<ssize_t>(result.size()) ? 0 : 1);
  }
  ::close(channel[1]);
  std::string result;
  char piece[512];
  for (ssize_t size = 0; (size = ::read(channel[0], piece, sizeof piece)) > 0;)
    result.append(piece, static_cast<std::size_t>(size));
  ::close(channel[0]);
  int status = 0;
  ::waitpid(child, &status, 0);
  return status == 0 ? result : "the child process failed: " + result;
}

TEST(Connection, OpensTheKeywordForm) {
  const DatabaseFolder folder;
  Connection connection;
  connection.Open(FullConnectionString(folder.Path()));
  EXPECT_TRUE(connection.IsOpen());
  EXPECT_FALSE(connection.IsReadOnly());
}

TEST(Connection, OpensAProviderWithTheBarePath) {
  const DatabaseFolder folder;
  Connection connection;
  connection.SetProvider("Microsoft.Jet.OLEDB.4.0");
  connection.SetConnectionString(folder.Path());
  connection.Open();
  EXPECT_TRUE(connection.IsOpen());
}

TEST(Connection, ReportsTheExpandedFormWhileOpenAndAcceptsItAgain) {
  const DatabaseFolder folder;
  Connection first;
  first.SetProvider(std::string(kProvider));
  first.SetConnectionString(folder.Path());
  EXPECT_EQ(first.ConnectionString(), folder.Path());
  first.Open();
  EXPECT_EQ(first.ConnectionString(), "Provider=Microsoft.Jet.OLEDB.4.0;User ID=Admin;Data Source=" + folder.Path() +
                                          ";Mode=ReadWrite|Share Deny None;Extended Properties=\"\";"
                                          "Persist Security Info=False");
  Connection second;
  second.Open(first.ConnectionString());
  EXPECT_TRUE(second.IsOpen());
  EXPECT_EQ(second.ConnectionString(), first.ConnectionString());
  first.Close();
  EXPECT_EQ(first.ConnectionString(), folder.Path());
}

TEST(Connection, FindsARelativeDataSourceThroughTheCurrentFolder) {
  const DatabaseFolder folder;
  const fs::path before = fs::current_path();
  fs::current_path(folder.Folder());
  Connection connection;
  connection.Open("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=TonalithDB97.mdb");
  fs::current_path(before);
  EXPECT_NE(connection.ConnectionString().find("Data Source=" + folder.Path() + ";"), std::string::npos);
}

TEST(Connection, OpensAFileInAFolderWithSpecialCharacters) {
  const tests::TempFolder outer;
  const fs::path folder = outer.Path() / "a;b=c 'd' \"e\" 100% Größe";
  fs::create_directory(folder);
  const std::string path = (folder / kDatabaseFileName).string();
  CreateScaleDatabase(path);
  Connection first;
  first.Open(FullConnectionString(path));
  Connection second;
  second.Open(first.ConnectionString());
  EXPECT_TRUE(second.IsOpen());
}

TEST(Connection, NamesAMissingFileAndCreatesNone) {
  const tests::TempFolder folder;
  EXPECT_EQ(OpenFailure(folder / "none.mdb"), "Could not find file '" + (folder / "none.mdb") + "'.");
  EXPECT_EQ(FailureOf([&] { Connection().Open(FullConnectionString(folder / "none.mdb")); }).Number(), -2147467259);
  EXPECT_FALSE(fs::exists(folder / "none.mdb"));
}

TEST(Connection, NamesAFileInAMissingFolder) {
  EXPECT_EQ(OpenFailure("/no/such/folder/x.mdb"), "Could not find file '/no/such/folder/x.mdb'.");
}

TEST(Connection, NamesABrokenLink) {
  const tests::TempFolder folder;
  fs::create_symlink(folder / "gone", folder / "link.mdb");
  EXPECT_EQ(OpenFailure(folder / "link.mdb"), "Could not find file '" + (folder / "link.mdb") + "'.");
}

TEST(Connection, RefusesAFolderWithAMessage) {
  const tests::TempFolder folder;
  EXPECT_EQ(OpenFailure(folder.Path().string()), "'" + folder.Path().string() + "' is a folder, not a database file.");
}

TEST(Connection, RefusesAPipeWithoutWaitingForIt) {
  const tests::TempFolder folder;
  ASSERT_EQ(::mkfifo((folder / "pipe.mdb").c_str(), 0600), 0);
  EXPECT_EQ(OpenFailure(folder / "pipe.mdb"), "Unrecognized database format '" + (folder / "pipe.mdb") + "'.");
}

TEST(Connection, NamesAJournalThatIsAPipeOrAFolderWithoutWaitingForIt) {
  for (const char* ending : {"-journal", "-wal"}) {
    const DatabaseFolder folder;
    const std::string companion = folder.Path() + ending;
    const std::string message = "The file '" + companion + "' cannot be opened: it is no file.";
    ASSERT_EQ(::mkfifo(companion.c_str(), 0600), 0);
    EXPECT_EQ(OpenFailure(folder.Path()), message);
    fs::remove(companion);
    fs::create_directory(companion);
    EXPECT_EQ(OpenFailure(folder.Path()), message);
    fs::remove(companion);
    Connection().Open(FullConnectionString(folder.Path()));
  }
}

TEST(Connection, RefusesAFileThatIsNoDatabase) {
  const tests::TempFolder folder;
  for (const std::string& content : {std::string(), std::string("SQLite"), std::string(5000, 'x')}) {
    const std::string path = folder.Write("other.mdb", content);
    EXPECT_EQ(OpenFailure(path), "Unrecognized database format '" + path + "'.");
    EXPECT_EQ(fs::file_size(path), content.size());
  }
}

TEST(Connection, RefusesATruncatedDatabaseAtAnyLength) {
  const DatabaseFolder folder;
  const auto whole = fs::file_size(folder.Path());
  for (const std::uintmax_t size : {std::uintmax_t{16}, std::uintmax_t{50}, std::uintmax_t{99}, std::uintmax_t{4096},
                                    std::uintmax_t{5000}, whole / 2, whole - 1}) {
    fs::copy_file(folder.Path(), folder.Path() + ".cut", fs::copy_options::overwrite_existing);
    fs::resize_file(folder.Path() + ".cut", size);
    EXPECT_EQ(OpenFailure(folder.Path() + ".cut"), "Unrecognized database format '" + folder.Path() + ".cut'.") << size;
  }
}

TEST(Connection, RefusesAnUnknownProvider) {
  const DatabaseFolder folder;
  EXPECT_EQ(FailureOf([&] { Connection().Open("Provider=Other;Data Source=" + folder.Path()); }).Number(), 3706);
  EXPECT_EQ(FailureOf([&] { Connection().Open(folder.Path()); }).Number(), 3706);
}

TEST(Connection, RefusesUsersAndPasswordsOtherThanTheDefault) {
  const DatabaseFolder folder;
  Connection connection;
  EXPECT_EQ(FailureOf([&] { connection.Open(FullConnectionString(folder.Path()), "Admin", "secret"); }).Description(),
            "Not a valid account name or password.");
  connection.Open(FullConnectionString(folder.Path()), "admin", "");
  EXPECT_TRUE(connection.IsOpen());
}

TEST(Connection, RefusesADatabaseOfANewerRevision) {
  const DatabaseFolder folder;
  RunRaw(folder.Path(), "PRAGMA user_version = 99");
  EXPECT_EQ(OpenFailure(folder.Path()),
            "The database '" + folder.Path() +
                "' was made by a newer version of Tonalith (revision 99, this version reads "
                "up to " +
                std::to_string(SchemaRevisions().size()) + ").");
}

TEST(Connection, UpgradesAScaleDatabaseWithoutASchema) {
  const tests::TempFolder folder;
  const std::string path = folder / "old.mdb";
  SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec("PRAGMA application_id = 1414417480");
  Connection connection;
  connection.Open(FullConnectionString(path));
  EXPECT_EQ(AskRaw(path, "PRAGMA user_version"), std::to_string(SchemaRevisions().size()));
  EXPECT_EQ(AskRaw(path, "SELECT count(*) FROM ScalesQuery"), "0");
}

TEST(Connection, OpensADatabaseOfAnotherProgramWithoutChanges) {
  const tests::TempFolder folder;
  const std::string path = folder / "other.mdb";
  SQLite::Database(path, SQLite::OPEN_READWRITE | SQLite::OPEN_CREATE).exec("CREATE TABLE Scales (ScaleName)");
  Connection connection;
  connection.Open(FullConnectionString(path));
  EXPECT_EQ(AskRaw(path, "SELECT group_concat(name) FROM sqlite_schema"), "Scales");
  EXPECT_EQ(AskRaw(path, "PRAGMA user_version"), "0");
}

TEST(Connection, OpensForReadingOnRequest) {
  const DatabaseFolder folder;
  auto connection = std::make_shared<Connection>();
  connection->Open("Provider=Microsoft.Jet.OLEDB.4.0;Data Source=" + folder.Path() + ";Mode=Read");
  EXPECT_TRUE(connection->IsReadOnly());
  RecordSet records;
  records.Open("Scales", connection, CursorType::kKeyset, LockType::kOptimistic);
  EXPECT_EQ(FailureOf([&] { records.Delete(); }).Description(),
            "Cannot update. The database '" + folder.Path() + "' or its folder is read-only.");
}

TEST(Connection, ReportsAnUnreadableFile) {
  const DatabaseFolder folder;
  fs::permissions(folder.Folder(), fs::perms::all);
  fs::permissions(folder.Path(), fs::perms::none);
  EXPECT_EQ(AsNobody([&] { return OpenFailure(folder.Path()); }),
            "The file '" + folder.Path() + "' cannot be opened: Permission denied.");
}

TEST(Connection, ReportsAnUnreachableFolder) {
  const DatabaseFolder folder;
  fs::permissions(folder.Folder(), fs::perms::none);
  EXPECT_EQ(AsNobody([&] { return OpenFailure(folder.Path()); }),
            "The file '" + folder.Path() + "' cannot be reached: Permission denied.");
  fs::permissions(folder.Folder(), fs::perms::owner_all);
}

// Reads all rows, then tries to write one. Returns the failure of the write.
std::string ReadThenWrite(const std::string& path) {
  auto connection = std::make_shared<Connection>();
  connection->Open(FullConnectionString(path));
  RecordSet records;
  records.Open("ScalesQuery", connection, CursorType::kKeyset, LockType::kOptimistic);
  if (records.RecordCount() != 4) return "cannot read";
  records.SetFieldValue("ScaleName", "Other");
  const std::string result = FailureOf([&] { records.Update(); }).Description();
  return records.IsEditPending() ? result : "the edit is lost";
}

TEST(Connection, ReadsAReadOnlyFileAndRefusesToWriteIt) {
  const DatabaseFolder folder;
  fs::permissions(folder.Folder(), fs::perms::all);
  fs::permissions(folder.Path(), fs::perms::owner_read | fs::perms::others_read);
  EXPECT_EQ(AsNobody([&] { return ReadThenWrite(folder.Path()); }),
            "Cannot update. The database '" + folder.Path() + "' or its folder is read-only.");
}

TEST(Connection, ReadsAFileInAReadOnlyFolderAndRefusesToWriteIt) {
  const DatabaseFolder folder;
  fs::permissions(folder.Path(), fs::perms::all);
  fs::permissions(folder.Folder(), fs::perms::owner_all | fs::perms::others_read | fs::perms::others_exec);
  EXPECT_EQ(AsNobody([&] { return ReadThenWrite(folder.Path()); }),
            "Cannot update. The database '" + folder.Path() + "' or its folder is read-only.");
}

TEST(Connection, ReportsALockedFileAfterAShortTimeout) {
  const DatabaseFolder folder;
  int ready[2];
  int done[2];
  ASSERT_EQ(::pipe(ready), 0);
  ASSERT_EQ(::pipe(done), 0);
  const pid_t other = ::fork();
  if (other == 0) {
    SQLite::Database database(folder.Path(), SQLite::OPEN_READWRITE);
    database.exec("PRAGMA locking_mode = EXCLUSIVE; BEGIN EXCLUSIVE");
    char byte = 'r';
    const bool isReported = ::write(ready[1], &byte, 1) == 1 && ::read(done[0], &byte, 1) == 1;
    ::_exit(isReported ? 0 : 1);
  }
  char byte = 0;
  ASSERT_EQ(::read(ready[0], &byte, 1), 1);
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(OpenFailure(folder.Path()), "Could not use '" + folder.Path() + "'; file already in use.");
  EXPECT_LT(std::chrono::steady_clock::now() - start, tests::Timely(std::chrono::milliseconds(3 * kBusyMilliseconds)));
  ASSERT_EQ(::write(done[1], &byte, 1), 1);
  ::waitpid(other, nullptr, 0);
  for (const int end : {ready[0], ready[1], done[0], done[1]}) ::close(end);
  Connection connection;
  connection.Open(FullConnectionString(folder.Path()));
  EXPECT_TRUE(connection.IsOpen());
}

TEST(Connection, RollsBackItsTransaction) {
  const DatabaseFolder folder;
  const auto connection = folder.Open();
  connection->BeginTrans();
  RecordSet records;
  records.Open("Scales", connection, CursorType::kKeyset, LockType::kOptimistic);
  records.Delete();
  EXPECT_EQ(records.RecordCount(), 3);
  connection->RollbackTrans();
  EXPECT_EQ(records.RecordCount(), 4);
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "4");
}

TEST(Connection, CommitsItsTransaction) {
  const DatabaseFolder folder;
  const auto connection = folder.Open();
  connection->BeginTrans();
  RecordSet records;
  records.Open("Scales", connection, CursorType::kKeyset, LockType::kOptimistic);
  records.Delete();
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "4");
  connection->CommitTrans();
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "3");
}

TEST(Connection, RollsAnOpenTransactionBackWhenItCloses) {
  const DatabaseFolder folder;
  const auto connection = folder.Open();
  connection->BeginTrans();
  RecordSet records;
  records.Open("Scales", connection, CursorType::kKeyset, LockType::kOptimistic);
  records.Delete();
  connection->Close();
  EXPECT_EQ(AskRaw(folder.Path(), "SELECT count(*) FROM Scales"), "4");
}

TEST(Connection, HasOneTransactionAtATime) {
  const DatabaseFolder folder;
  const auto connection = folder.Open();
  EXPECT_EQ(FailureOf([&] { connection->CommitTrans(); }).Description(), "No transaction is active.");
  EXPECT_EQ(FailureOf([&] { connection->RollbackTrans(); }).Description(), "No transaction is active.");
  connection->BeginTrans();
  EXPECT_EQ(FailureOf([&] { connection->BeginTrans(); }).Number(), failure_number::kTransactionActive);
  connection->CommitTrans();
}

TEST(Connection, RefusesEverythingWhileClosedAndChangesOfItsStringWhileOpen) {
  const DatabaseFolder folder;
  Connection connection;
  EXPECT_EQ(FailureOf([&] { connection.Close(); }).Number(), 3704);
  EXPECT_EQ(FailureOf([&] { connection.BeginTrans(); }).Number(), 3704);
  connection.Open(FullConnectionString(folder.Path()));
  EXPECT_EQ(FailureOf([&] { connection.SetConnectionString(""); }).Number(), 3705);
  EXPECT_EQ(FailureOf([&] { connection.SetProvider(""); }).Number(), 3705);
  EXPECT_EQ(FailureOf([&] { connection.Open(); }).Number(), 3705);
}

TEST(Connection, LeavesNoOtherFilesInTheFolder) {
  const DatabaseFolder folder;
  {
    const auto connection = folder.Open();
    RecordSet records;
    records.Open("ScalesQuery", connection, CursorType::kKeyset, LockType::kOptimistic);
    records.Delete();
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.Folder()), fs::directory_iterator()), 1);
  }
  EXPECT_EQ(std::distance(fs::directory_iterator(folder.Folder()), fs::directory_iterator()), 1);
}

TEST(Connection, CountsStatementsButNotTheChecksOfOpening) {
  const DatabaseFolder folder;
  const std::uint64_t before = Connection::StatementsIssued();
  const auto connection = folder.Open();
  EXPECT_EQ(Connection::StatementsIssued(), before);
  RecordSet records;
  records.Open("ScalesQuery", connection);
  EXPECT_EQ(Connection::StatementsIssued(), before + 1);
  records.MoveNext();
  EXPECT_EQ(Connection::StatementsIssued(), before + 1);
}

}  // namespace
}  // namespace tonalith::data
