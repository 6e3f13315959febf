// FIOR tables read from their files: every line form of the file's grammar, the same lines in
// each encoding and with each line end, elements too long for their arrays, files without
// lines, and what Init, Done and a failed Init leave of an earlier table.
#include <brelt/fior.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#include "../fio/scratch_folder.h"

namespace {

using SV = std::string_view;
using namespace std::literals;
using brelt::test::HighOf;

struct Line {
  std::string pattern;
  std::vector<std::string> dirs;
  bool operator==(const Line&) const = default;
};
using Table = std::vector<Line>;

// An element as stored: up to its NUL, or all 260 characters of a full array.
std::string Element(const char (&text)[260]) { return std::string(text, strnlen(text, 260)); }

Table Dump(const FIOR::CRed1A& red) {
  Table out;
  for (const FIOR::PatternNode* p = red.List; p != nullptr; p = p->Next) {
    out.push_back({Element(p->Pattern), {}});
    for (const FIOR::DirNode* d = p->Dirs; d != nullptr; d = d->Next) {
      out.back().dirs.push_back(Element(d->Dir));
    }
  }
  return out;
}

std::string Show(const Table& t) {
  std::string s;
  for (const Line& l : t) {
    s += "[" + l.pattern + "]";
    for (const std::string& d : l.dirs) s += " {" + d + "}";
    s += "\n";
  }
  return s;
}

// 16-bit little-endian bytes of ASCII text.
std::string Wide(SV text) {
  std::string out;
  for (char c : text) out += std::string{c, '\0'};
  return out;
}

class FiorTableFile : public brelt::test::ScratchFolder {
 protected:
  void TearDown() override {
    red_.Done();
    ScratchFolder::TearDown();
  }
  // Init from the file "paths.txt" of the scratch folder, by its full name.
  void InitFrom(SV bytes) {
    Put("paths.txt", bytes);
    InitNamed("paths.txt");
  }
  void InitNamed(SV name) {
    const std::string full = Full(name);
    red_.Init(HighOf(full), full.c_str());
  }
  FIOR::CRed1A red_;
};

// Every line of the file's grammar, each with the node it must give (an empty line gives
// none), once per encoding and line end below.
const struct {
  SV line;
  bool node;
  Line want;
} kGrammar[] = {
    {"*.dat = data; ..\\shared\\data", 1, {"*.dat", {"data", "..\\shared\\data"}}},
    {"*.ini=D:\\etc", 1, {"*.ini", {"D:\\etc"}}},
    {"readme.txt = docs;;more docs", 1, {"readme.txt", {"docs", "more docs"}}},
    {"*.bmp = a; ;b", 1, {"*.bmp", {"a"}}},
    {"*.tmp =", 1, {"*.tmp", {}}},
    {"", 0, {}},
    {"report", 1, {"report", {"report"}}},
    {"; note", 1, {"; note", {"note"}}},
    {"=x", 1, {"x", {"x"}}},
    {"a==b", 1, {"a", {"=b"}}},
    {"a = b = c", 1, {"a", {"b = c"}}},
    {" ", 1, {"", {}}},
    {"a = *b", 1, {"a", {"*b"}}},
    {" = x", 1, {"", {"x"}}},
    {"*.dat = b", 1, {"*.dat", {"b"}}},
};

// The grammar's lines joined into a file: 8-bit or 16-bit, with or without a mark, each line
// ended by `ends` in turn (the last one by nothing when `openEnd`).
std::string GrammarFile(bool wide, bool mark, std::vector<SV> ends, bool openEnd) {
  std::string text;
  std::size_t i = 0;
  for (const auto& g : kGrammar) {
    text += g.line;
    if (!openEnd || i + 1 < std::size(kGrammar)) text += ends[i % ends.size()];
    ++i;
  }
  if (!wide) return text;
  return (mark ? "\xFF\xFE"s : ""s) + Wide(text);
}

TEST_F(FiorTableFile, GrammarInEveryEncodingAndLineEnd) {
  Table want;
  for (const auto& g : kGrammar) {
    if (g.node) want.push_back(g.want);
  }
  const struct { const char* what; std::string bytes; } files[] = {
      {"8-bit, LF", GrammarFile(false, false, {"\n"}, false)},
      {"8-bit, CR LF, no end on the last line", GrammarFile(false, false, {"\r\n"}, true)},
      {"8-bit, 26 ends some lines", GrammarFile(false, false, {"\n", "\x1a", "\r\x1a"}, true)},
      {"16-bit with a mark", GrammarFile(true, true, {"\r\n"}, true)},
      {"16-bit without a mark", GrammarFile(true, false, {"\n"}, false)},
      {"16-bit, 26 ends some lines", GrammarFile(true, true, {"\x1a", "\n"}, false)},
  };
  for (const auto& f : files) {
    InitFrom(f.bytes);
    EXPECT_EQ(Show(Dump(red_)), Show(want)) << f.what;
    EXPECT_EQ(std::string(red_.BaseDir), Dir()) << f.what;
  }
}

// An element is cut to 260 characters by the item split, without a NUL, and trimmed after;
// a line of more than 1025 characters goes on as a further line.
TEST_F(FiorTableFile, ElementsTooLongForTheirArrays) {
  const std::string p300(300, 'p'), d300(300, 'd');
  const struct { std::string line; Table want; } rows[] = {
      {p300 + "=" + d300 + ";b", {{p300.substr(0, 260), {d300.substr(0, 260), "b"}}}},
      {"  " + p300 + "=x", {{p300.substr(0, 258), {"x"}}}},
      {"x=" + std::string(1100, 'y'),
       {{"x", {std::string(260, 'y')}}, {std::string(77, 'y'), {std::string(77, 'y')}}}},
  };
  for (const auto& r : rows) {
    InitFrom(r.line + "\nlast=z");
    Table want = r.want;
    want.push_back({"last", {"z"}});
    EXPECT_EQ(Show(Dump(red_)), Show(want)) << r.line.substr(0, 20);
  }
}

// Files that open but hold no line: BaseDir is set and the table is empty.
TEST_F(FiorTableFile, FilesWithoutLines) {
  const struct { const char* what; SV bytes; } rows[] = {
      {"empty", ""sv},
      {"mark and LF", "\xFF\xFE\n"sv},
      {"line ends and a 26", "\r\n\n\x1a\n"sv},
      {"16-bit line ends", "\n\0\r\0\n\0"sv},
  };
  for (const auto& r : rows) {
    std::strcpy(red_.BaseDir, "X:\\before");
    InitFrom(r.bytes);
    EXPECT_EQ(red_.List, nullptr) << r.what;
    EXPECT_EQ(std::string(red_.BaseDir), Dir()) << r.what;
  }
}

// A failed Init drops the old table and keeps BaseDir; Done keeps BaseDir too, empties
// DefaultDir, and a second Done finds nothing left to do.
TEST_F(FiorTableFile, WhatInitAndDoneLeave) {
  InitFrom("*.dat = data\n");
  ASSERT_NE(red_.List, nullptr);
  std::strcpy(red_.DefaultDir, "E:\\def");
  InitNamed("missing.txt");
  EXPECT_EQ(red_.List, nullptr);
  EXPECT_EQ(std::string(red_.BaseDir), Dir());
  EXPECT_EQ(std::string(red_.DefaultDir), "E:\\def");
  EXPECT_EQ(FIO::IOresult(), 2u);

  InitFrom("*.dat = data\n");
  for (int i = 0; i < 2; ++i) {
    red_.Done();
    EXPECT_EQ(red_.List, nullptr) << i;
    EXPECT_EQ(red_.DefaultDir[0], '\0') << i;
    EXPECT_EQ(std::string(red_.BaseDir), Dir()) << i;
  }
}

// A relative name is taken from the current directory, whatever BaseDir holds; the free
// functions work on the global table in the same way.
TEST_F(FiorTableFile, RelativeNameAndTheGlobalTable) {
  MakeFolder("cfg");
  Put("cfg/paths.txt", "*.ini = etc\n");
  std::strcpy(red_.BaseDir, "X:\\elsewhere");
  red_.Init(13, "cfg\\paths.txt");
  EXPECT_EQ(Show(Dump(red_)), Show({{"*.ini", {"etc"}}}));
  EXPECT_EQ(std::string(red_.BaseDir), Full("cfg"));

  FIOR::InitA(13, "cfg\\paths.txt");
  char where[260] = "#";
  EXPECT_EQ(FIOR::FindNewPathA(4, "a.ini", 259, where), 1);
  EXPECT_EQ(std::string(where), Full("cfg\\etc\\a.ini"));
  FIOR::Done();
  EXPECT_EQ(FIOR::FindNewPathA(4, "a.ini", 259, where), 1);
  EXPECT_EQ(std::string(where), Full("cfg\\a.ini"));
}

}  // namespace
