// SPDX-License-Identifier: MIT
// SPDX-FileCopyrightText: 2026 The Tonalith authors

// Every field type of a Jet file, and damage within pages: the table "ScaleTypes" of the older fixture with the type
// and the content of its last field replaced.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "jet/jet_fixture.h"
#include "jet/jet_reader.h"
#include "support/failure_of.h"
#include "support/temp_folder.h"

namespace tonalith::jet {
namespace {

using tests::FailureOf;

using ::testing::ElementsAre;

// The type numbers of the format.
constexpr int kYesNo = 1;
constexpr int kByte = 2;
constexpr int kInteger = 3;
constexpr int kLongInteger = 4;
constexpr int kMoney = 5;
constexpr int kSingle = 6;
constexpr int kDouble = 7;
constexpr int kDate = 8;
constexpr int kBinary = 9;
constexpr int kText = 10;
constexpr int kOle = 11;
constexpr int kMemo = 12;
constexpr int kReplicationId = 15;
constexpr int kNumeric = 16;

// The definition of the table "ScaleTypes": its numbers of rows and fields, and its fields in entries of 25 bytes.
constexpr std::size_t kDefinition = 24 * kJetPage;
constexpr std::size_t kNextPage = kDefinition + 0x04;
constexpr std::size_t kRowCount = kDefinition + 0x10;
constexpr std::size_t kFieldCount = kDefinition + 0x2D;
constexpr std::size_t kEntrySize = 25;
constexpr std::size_t kEntries = kDefinition + 0x4B;
constexpr std::size_t kNameEntry = kEntries + 2 * kEntrySize;
constexpr std::size_t kPrecisionInEntry = 11;
constexpr std::size_t kNumberInEntry = 5;

// Its rows: type 401, "Fixture modes", is the last row on its page, the other precedes it. A row ends with the end of
// its last field, the start of that field, the number of such fields, and one bit per field that is not null.
constexpr std::size_t kName = 27 * kJetPage + 4063;
constexpr std::size_t kNameInRow = 10;
constexpr std::size_t kNameSpace = 26;
constexpr std::size_t kEndOfName = kName + kNameSpace;
constexpr std::size_t kPresentInOther = 27 * kJetPage + 4052;

/// Bytes written as "FF 00 7A".
std::string Hex(const std::string& text) {
  std::istringstream stream(text);
  std::string bytes;
  for (std::string word; stream >> word;) bytes += static_cast<char>(std::stoi(word, nullptr, 16));
  return bytes;
}

std::string Number(std::size_t number, std::size_t size) {
  std::string bytes;
  for (std::size_t i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xFF);
  return bytes;
}

void Put(std::string& content, std::size_t offset, const std::string& bytes) {
  if (offset + bytes.size() > content.size()) throw std::out_of_range("a patch past the end");
  content.replace(offset, bytes.size(), bytes);
}

/// The fixture in which the name of the type is a field of another type; it is null in all other rows.
std::string FileWith(int kind, const std::string& field, int scale = 0) {
  EXPECT_LE(field.size(), kNameSpace);
  std::string content = ContentOfFile(kJet2000);
  Put(content, kNameEntry, Number(static_cast<std::size_t>(kind), 1));
  if (kind == kNumeric) {
    const std::size_t precision = 28;
    Put(content, kNameEntry + kPrecisionInEntry, Number(precision, 1) + Number(static_cast<std::size_t>(scale), 1));
  }
  Put(content, kName, field);
  Put(content, kEndOfName, Number(kNameInRow + field.size(), 2));
  Put(content, kPresentInOther, Number(0b011, 1));
  return content;
}

/// Records one table.
class TableReader : public JetVisitor {
 public:
  TableReader(const std::string& content, std::string name) : name_(std::move(name)) {
    const tests::TempFolder folder;
    ReadWithLibmdb(folder.Write("a.mdb", content), *this);
  }
  void OnObject(const JetObject& /*object*/) override {}
  void OnTable(const JetTable& read) override {
    isCurrent_ = read.name == name_;
    if (isCurrent_) table = read;
  }
  void OnRow(std::vector<core::Value> values) override {
    if (isCurrent_) rows.push_back(std::move(values));
  }

  JetTable table;
  std::vector<std::vector<core::Value>> rows;

 private:
  std::string name_;
  bool isCurrent_ = false;
};

std::string RefusalOf(const std::string& content) {
  return FailureOf([&] { const TableReader types(content, "ScaleTypes"); }).Description();
}

std::string DamageOf(const std::string& table, const std::string& what) {
  return "it is damaged: the table '" + table + "' cannot be read completely (" + what + ")";
}

struct Case {
  int kind;
  std::string field;
  JetContent content;
  core::Value value;
  int scale = 0;
};

void ExpectRead(const std::vector<Case>& cases) {
  for (const Case& given : cases) {
    SCOPED_TRACE("kind " + std::to_string(given.kind) + ": " + given.field);
    const TableReader types(FileWith(given.kind, Hex(given.field), given.scale), "ScaleTypes");
    EXPECT_EQ(types.table.columns.at(2), (JetColumn{"ScaleTypeName", given.content}));
    ASSERT_EQ(types.rows.size(), 2U);
    EXPECT_THAT(types.rows[0], ElementsAre(core::Value(401), core::Value(401), given.value));
    EXPECT_THAT(types.rows[1], ElementsAre(core::Value(1), core::Value(1), core::Value::Null()));
  }
}

TEST(JetKinds, IntegersKeepTheirSign) {
  const JetContent whole = JetContent::kWholeNumber;
  ExpectRead({{kByte, "00", whole, 0},
              {kByte, "FF", whole, 255},
              {kInteger, "FF 7F", whole, 32767},
              {kInteger, "FE FF", whole, -2},
              {kLongInteger, "01 00 00 80", whole, -2147483647},
              {kLongInteger, "4E 61 BC 00", whole, 12345678}});
}

TEST(JetKinds, FractionsHaveTwoWidths) {
  ExpectRead({{kSingle, "00 00 50 40", JetContent::kFraction, 3.25},
              {kSingle, "00 00 00 BF", JetContent::kFraction, -0.5},
              {kDouble, "00 00 00 00 00 00 0A C0", JetContent::kFraction, -3.25}});
}

TEST(JetKinds, MoneyHasFourDecimalsAndIsNeverRounded) {
  const JetContent decimal = JetContent::kDecimal;
  ExpectRead({{kMoney, "48 E8 01 00 00 00 00 00", decimal, 12.5},
              {kMoney, "FF FF FF FF FF FF FF FF", decimal, -0.0001},
              {kMoney, "70 11 01 00 00 00 00 00", decimal, 7},
              {kMoney, "FF FF FF FF FF FF FF 7F", decimal, "922337203685477.5807"}});
}

// A sign byte and sixteen bytes: groups of four in descending order, each group little-endian.
TEST(JetKinds, NumericFieldsHaveTheDecimalsOfTheirDefinition) {
  const JetContent decimal = JetContent::kDecimal;
  const std::string zeros = " 00 00 00 00";
  const std::string upper = zeros + zeros;
  ExpectRead({{kNumeric, "00" + upper + zeros + " 39 30 00 00", decimal, 12345},
              {kNumeric, "00" + upper + zeros + " 39 30 00 00", decimal, 123.45, 2},
              {kNumeric, "80" + upper + zeros + " 39 30 00 00", decimal, -12.345, 3},
              {kNumeric, "00" + upper + " 02 00 00 00" + zeros, decimal, std::int64_t{8589934592}},
              {kNumeric, "00" + upper + " FF FF FF FF FF FF FF FF", decimal, "18446744073709551615"},
              {kNumeric, "80" + upper + " FF FF FF FF FF FF FF FF", decimal, "-1844674407370955161.5", 1}});
}

TEST(JetKinds, DatesTextsAndReplicationIdsAreText) {
  ExpectRead({{kDate, "00 00 00 00 00 00 F4 3F", JetContent::kDate, "1899-12-31 06:00:00"},
              {kText, "42 00 6D 26", JetContent::kText, "B♭"},
              {kText, "FF FE 41 42", JetContent::kText, "AB"},
              {kMemo, "04 00 00 80 00 00 00 00 00 00 00 00 43 00 6F 26", JetContent::kText, "C♯"},
              {kReplicationId, "67 45 23 01 AB 89 EF CD 10 32 54 76 98 BA DC FE", JetContent::kText,
               "{01234567-89AB-CDEF-1032-547698BADCFE}"}});
}

TEST(JetKinds, BytesStayBytes) {
  ExpectRead({{kBinary, "00 FF 07", JetContent::kBytes, core::Bytes{0, 255, 7}},
              {kOle, "03 00 00 80 00 00 00 00 00 00 00 00 01 00 FF", JetContent::kBytes, core::Bytes{1, 0, 255}},
              {kOle, "00 00 00 00 00 00 00 00 00 00 00 00", JetContent::kBytes, core::Bytes{}}});
}

TEST(JetKinds, ALongValueHasTheLengthInItsReference) {
  const JetContent bytes = JetContent::kBytes;
  ExpectRead({{kOle, "02 00 00 80 00 00 00 00 00 00 00 00 01 02 03", bytes, core::Bytes{1, 2}},
              {kOle, "04 00 00 40 00 21 00 00 00 00 00 00", bytes, core::Bytes{'A', 0, ' ', 0}},
              {kMemo, "04 00 00 40 00 21 00 00 00 00 00 00", JetContent::kText, "A "}});
}

TEST(JetKinds, YesIsAnyValueButNull) {
  const TableReader types(FileWith(kYesNo, ""), "ScaleTypes");
  EXPECT_EQ(types.table.columns.at(2), (JetColumn{"ScaleTypeName", JetContent::kYesNo}));
  ASSERT_EQ(types.rows.size(), 2U);
  EXPECT_EQ(types.rows[0].at(2), core::Value::YesNo(true));
  EXPECT_EQ(types.rows[1].at(2), core::Value::YesNo(false));
}

TEST(JetKinds, AnUnknownTypeIsRefusedWithItsFieldAndTable) {
  for (const int kind : {0, 13, 14, 17, 18, 19, 200}) {
    EXPECT_EQ(RefusalOf(FileWith(kind, "")),
              "the field 'ScaleTypeName' of the table 'ScaleTypes' is of a kind that is not known here")
        << kind;
  }
}

TEST(JetKinds, ANumberOfTheWrongSizeIsDamage) {
  const std::vector<std::pair<int, std::size_t>> sizes = {{kByte, 1},   {kInteger, 2},  {kLongInteger, 4},
                                                          {kSingle, 4}, {kDouble, 8},   {kMoney, 8},
                                                          {kDate, 8},   {kNumeric, 17}, {kReplicationId, 16}};
  for (const auto& [kind, size] : sizes) {
    for (const std::size_t wrong : {std::size_t{0}, size - 1, size + 1}) {
      EXPECT_EQ(RefusalOf(FileWith(kind, std::string(wrong, '\0'))), DamageOf("ScaleTypes", "a field"))
          << kind << " in " << wrong << " bytes";
    }
  }
}

TEST(JetKinds, AFractionThatIsNoNumberIsDamage) {
  EXPECT_EQ(RefusalOf(FileWith(kSingle, Hex("00 00 C0 7F"))), DamageOf("ScaleTypes", "a number"));
  EXPECT_EQ(RefusalOf(FileWith(kDouble, Hex("00 00 00 00 00 00 F8 FF"))), DamageOf("ScaleTypes", "a number"));
}

TEST(JetKinds, ALongValueWithoutItsReferenceOrLengthIsDamage) {
  const std::string damage = DamageOf("ScaleTypes", "a long content");
  for (const int kind : {kMemo, kOle}) {
    EXPECT_EQ(RefusalOf(FileWith(kind, Hex("00 00 00 80 00 00 00 00 00 00 00"))), damage) << "eleven bytes";
    EXPECT_EQ(RefusalOf(FileWith(kind, Hex("03 00 00 80 00 00 00 00 00 00 00 00 41 00"))), damage) << "one short";
    EXPECT_EQ(RefusalOf(FileWith(kind, Hex("4E 00 00 40 00 21 00 00 00 00 00 00"))), damage) << "two more than its row";
  }
}

TEST(JetKinds, RowsAreCheckedAgainstTheCountOfTheTable) {
  std::string content = ContentOfFile(kJet2000);
  Put(content, kRowCount, Number(1, 4));
  EXPECT_EQ(RefusalOf(content), DamageOf("ScaleTypes", "more rows than it says"));
  Put(content, kRowCount, Number(3, 4));
  EXPECT_EQ(RefusalOf(content), DamageOf("ScaleTypes", "2 of 3 rows are there"));
}

/// The fixture in which the table has `count` fields, all but the first three added. The definition continues on pages
/// at the end of the file.
std::string FileWithFields(std::size_t count) {
  const std::string whole = ContentOfFile(kJet2000);
  std::string definition = whole.substr(kDefinition, kEntries - kDefinition + 3 * kEntrySize);
  for (std::size_t i = 3; i < count; ++i) {
    std::string entry = whole.substr(kEntries, kEntrySize);
    Put(entry, kNumberInEntry, Number(i, 2));
    definition += entry;
  }
  for (std::size_t i = 0; i < count; ++i) definition += Hex("04 00 46 00") + Number('A' + i, 2);
  std::string content = whole;
  Put(content, kDefinition, definition.substr(0, kJetPage));
  Put(content, kFieldCount, Number(count, 2));
  std::size_t link = kNextPage;
  constexpr std::size_t kContentSize = kJetPage - 8;
  for (std::size_t at = kJetPage; at < definition.size(); at += kContentSize) {
    Put(content, link, Number(content.size() / kJetPage, 4));
    link = content.size() + 4;
    std::string page = Hex("02 01 56 43 00 00 00 00") + definition.substr(at, kContentSize);
    page.resize(kJetPage);
    content += page;
  }
  return content;
}

TEST(JetKinds, ATableHasAtMostTwoHundredAndFiftyFiveFields) {
  const TableReader types(FileWithFields(255), "ScaleTypes");
  EXPECT_EQ(types.table.columns.size(), 255U);
  EXPECT_EQ(types.table.columns.back(), (JetColumn{"FĿ", JetContent::kWholeNumber}));
  ASSERT_EQ(types.rows.size(), 2U);
  EXPECT_EQ(types.rows[0].size(), 255U);
  EXPECT_EQ(types.rows[0].at(2), core::Value("Fixture modes"));
  EXPECT_TRUE(types.rows[0].at(3).IsNull());
  EXPECT_EQ(RefusalOf(FileWithFields(256)), DamageOf("ScaleTypes", "its fields"));
}

TEST(JetKinds, AFieldWithoutANameIsDamage) {
  std::string content = ContentOfFile(kJet2000);
  Put(content, kEntries + 3 * kEntrySize, Hex("16 00 00 00"));
  EXPECT_EQ(RefusalOf(content), DamageOf("ScaleTypes", "its fields"));
}

// The description of the last scale, 5,004 letters: a chain over three pages of long values with one row each. Each row
// starts with the number of the next page; the address of the first row is in the scale.
constexpr std::size_t kFirstPage = 36 * kJetPage;
constexpr std::size_t kLastPage = 38 * kJetPage;
constexpr std::size_t kOwnerInPage = 4;
constexpr std::size_t kRowPlaceInPage = 14;
constexpr std::size_t kFirstRowInPage = 20;
constexpr std::size_t kLastRowInPage = 0x8B4;

std::string DescriptionOf(const std::string& content) {
  return TableReader(content, "Scales").rows.back().at(3).AsText();
}

std::string FixtureWith(std::size_t offset, const std::string& bytes) {
  std::string content = ContentOfFile(kJet2000);
  Put(content, offset, bytes);
  return content;
}

TEST(JetKinds, ALongValueEndsAtItsLengthEvenInACircularChain) {
  const std::string whole = DescriptionOf(ContentOfFile(kJet2000));
  ASSERT_EQ(whole.size(), 5004U);
  EXPECT_EQ(DescriptionOf(FixtureWith(kLastPage + kLastRowInPage, Hex("00 24 00 00"))), whole);
}

TEST(JetKinds, ALongValueThatRefersElsewhereIsDamage) {
  const std::string damage = DamageOf("Scales", "a long content");
  const std::size_t link = kFirstPage + kFirstRowInPage;
  EXPECT_EQ(RefusalOf(FixtureWith(link, Hex("00 00 00 00"))), damage) << "the chain ends too soon";
  EXPECT_EQ(RefusalOf(FixtureWith(link, Hex("00 22 00 00"))), damage) << "a page of rows";
  EXPECT_EQ(RefusalOf(FixtureWith(link, Hex("07 25 00 00"))), damage) << "a row that is not there";
  EXPECT_EQ(RefusalOf(FixtureWith(link, Hex("00 FF FF 00"))), damage) << "a page that is not there";
  EXPECT_EQ(RefusalOf(FixtureWith(kLastPage, Hex("02"))), damage) << "a page of another type";
  EXPECT_EQ(RefusalOf(FixtureWith(kLastPage + kOwnerInPage, "lval")), damage) << "a page of another owner";
  EXPECT_EQ(RefusalOf(FixtureWith(kLastPage + kRowPlaceInPage, Number(kJetPage - 4, 2))), damage) << "nothing but link";
}

}  // namespace
}  // namespace tonalith::jet
