// FIOR tables read from their files: every line form of the grammar, in each encoding and with
// each line end, elements too long for their arrays, files without lines, and what Init and
// Done leave of an earlier table.
#include <brelt/fior.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <string_view>

#include "../fio/scratch_folder.h"

namespace {

using SV = std::string_view;
using namespace std::literals;

// The table as text: "[pattern] {dir} {dir}" a line; an element ends at its NUL or fills
// all 260 characters.
std::string Dump(const FIOR::CRed1A& red) {
  std::string out;
  for (const FIOR::PatternNode* p = red.List; p != nullptr; p = p->Next) {
    out += "[" + std::string(p->Pattern, strnlen(p->Pattern, 260)) + "]";
    for (const FIOR::DirNode* d = p->Dirs; d != nullptr; d = d->Next) {
      out += " {" + std::string(d->Dir, strnlen(d->Dir, 260)) + "}";
    }
    out += "\n";
  }
  return out;
}

class FiorTableFile : public brelt::test::ScratchFolder {
 protected:
  void TearDown() override {
    red_.Done();
    ScratchFolder::TearDown();
  }
  void InitFrom(SV bytes, const char* name = "paths.txt") {
    Put(name, bytes);
    const std::string full = Full(name);
    red_.Init(brelt::test::HighOf(full), full.c_str());
  }
  FIOR::CRed1A red_;
};

// Each line of the grammar and the node it gives ("" for none).
const struct { SV line, node; } kGrammar[] = {
    {"*.dat = data; ..\\shared\\data", "[*.dat] {data} {..\\shared\\data}"},
    {"*.ini=D:\\etc", "[*.ini] {D:\\etc}"},
    {"readme.txt = docs;;more docs", "[readme.txt] {docs} {more docs}"},
    {"*.bmp = a; ;b", "[*.bmp] {a}"},
    {"*.tmp =", "[*.tmp]"},
    {"", ""},
    {"report", "[report] {report}"},
    {"; note", "[; note] {note}"},
    {"=x", "[x] {x}"},
    {"a==b", "[a] {=b}"},
    {"a = b = c", "[a] {b = c}"},
    {" ", "[]"},
    {"a = *b", "[a] {*b}"},
    {" = x", "[] {x}"},
    {"*.dat = b", "[*.dat] {b}"},
};

// The grammar's lines, ended by `ends` in turn, the last one by nothing when `open`; 16-bit
// text (low byte first) after `mark` when `wide`.
std::string GrammarFile(std::initializer_list<SV> ends, bool open, bool wide, SV mark = "") {
  std::string text;
  for (std::size_t i = 0; i < std::size(kGrammar); ++i) {
    text += kGrammar[i].line;
    if (!open || i + 1 < std::size(kGrammar)) text += ends.begin()[i % ends.size()];
  }
  if (!wide) return text;
  std::string units(mark);
  for (char c : text) units += {c, '\0'};
  return units;
}

TEST_F(FiorTableFile, GrammarInEveryEncodingAndLineEnd) {
  std::string want;
  for (const auto& g : kGrammar) want += g.node.empty() ? "" : std::string(g.node) + "\n";
  const struct { const char* what; std::string bytes; } files[] = {
      {"8-bit, LF", GrammarFile({"\n"}, false, false)},
      {"8-bit, CR LF and 26, open end", GrammarFile({"\r\n", "\x1a", "\r\x1a"}, true, false)},
      {"16-bit with a mark, open end", GrammarFile({"\r\n", "\x1a"}, true, true, "\xFF\xFE")},
      {"16-bit without a mark", GrammarFile({"\n"}, false, true)},
  };
  for (const auto& f : files) {
    InitFrom(f.bytes);
    EXPECT_EQ(Dump(red_), want) << f.what;
    EXPECT_EQ(std::string(red_.BaseDir), Dir()) << f.what;
  }
}

// An element is cut to 260 characters without a NUL, then trimmed; a line of more than 1025
// characters goes on as a further line.
TEST_F(FiorTableFile, ElementsTooLongForTheirArrays) {
  const std::string p(300, 'p'), d(300, 'd'), y(1100, 'y');
  const struct { std::string line, want; } rows[] = {
      {p + "=" + d + ";b", "[" + p.substr(0, 260) + "] {" + d.substr(0, 260) + "} {b}\n"},
      {"  " + p + "=x", "[" + p.substr(0, 258) + "] {x}\n"},
      {"x=" + y, "[x] {" + y.substr(0, 260) + "}\n[" + y.substr(0, 77) + "] {" + y.substr(0, 77) +
                     "}\n"},
  };
  for (const auto& r : rows) {
    InitFrom(r.line + "\nlast=z");
    EXPECT_EQ(Dump(red_), r.want + "[last] {z}\n") << r.line.substr(0, 20);
  }
}

// A file that opens but holds no line: BaseDir is set, the table is empty. The mark FF FE with
// a single byte behind it leaves that byte to be read as a character.
TEST_F(FiorTableFile, FilesWithoutLines) {
  for (const SV bytes : {""sv, "\xFF\xFE\n"sv, "\r\n\n\x1a\n"sv, "\n\0\r\0\n\0"sv}) {
    std::strcpy(red_.BaseDir, "X:\\before");
    InitFrom(bytes);
    EXPECT_EQ(red_.List, nullptr) << bytes.size();
    EXPECT_EQ(std::string(red_.BaseDir), Dir()) << bytes.size();
  }
}

// A failed Init drops the old table and keeps BaseDir; Done empties DefaultDir, keeps BaseDir,
// and a second Done does nothing. A relative name counts from the current directory, not from
// BaseDir.
TEST_F(FiorTableFile, WhatInitAndDoneLeave) {
  MakeFolder("cfg");
  Put("cfg/paths.txt", "*.ini = etc\n");
  red_.Init(13, "cfg\\paths.txt");
  EXPECT_EQ(Dump(red_), "[*.ini] {etc}\n");
  EXPECT_EQ(std::string(red_.BaseDir), Full("cfg"));
  std::strcpy(red_.DefaultDir, "E:\\def");
  red_.Init(11, "missing.txt");
  EXPECT_EQ(FIO::IOresult(), 2u);
  EXPECT_EQ(red_.List, nullptr);
  EXPECT_EQ(std::string(red_.BaseDir), Full("cfg"));
  EXPECT_EQ(std::string(red_.DefaultDir), "E:\\def");

  InitFrom("*.dat = data\n");
  for (int i = 0; i < 2; ++i) {
    red_.Done();
    EXPECT_EQ(red_.List, nullptr) << i;
    EXPECT_EQ(red_.DefaultDir[0], '\0') << i;
    EXPECT_EQ(std::string(red_.BaseDir), Dir()) << i;
  }
}

}  // namespace
