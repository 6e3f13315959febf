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
using S = std::string;

// "[pattern] {dir} {dir}" a line; an element ends at its NUL or fills all 260 characters.
S Dump(const FIOR::CRed1A& red) {
  S out;
  for (const FIOR::PatternNode* p = red.List; p != nullptr; p = p->Next) {
    out += "[" + S(p->Pattern, strnlen(p->Pattern, 260)) + "]";
    for (const FIOR::DirNode* d = p->Dirs; d != nullptr; d = d->Next) {
      out += " {" + S(d->Dir, strnlen(d->Dir, 260)) + "}";
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
  FIOR::CRed1A red_;
};

// Each line of the grammar and the node it gives ("" for none).
const struct { SV line, node; } kGrammar[] = {
    {"*.dat = data; ..\\shared\\data", "[*.dat] {data} {..\\shared\\data}"},
    {"*.ini=D:\\etc", "[*.ini] {D:\\etc}"},
    {"readme.txt = docs;;more docs", "[readme.txt] {docs} {more docs}"},
    {"*.bmp = a; ;b", "[*.bmp] {a}"}, {"*.tmp =", "[*.tmp]"}, {"", ""},
    {"rep\rort", "[report] {report}"},  {"; note", "[; note] {note}"}, {"=x", "[x] {x}"},
    {"a==b", "[a] {=b}"},             {"a = b = c", "[a] {b = c}"},   {" ", "[]"},
    {"a = *b", "[a] {*b}"},           {" = x", "[] {x}"},             {"*.dat = b", "[*.dat] {b}"}};

// The grammar's lines, ended by `ends` in turn, the last one by nothing when `open`; 16-bit
// text (low byte first) after `mark` when `wide`.
S GrammarFile(std::initializer_list<SV> ends, bool open, bool wide, SV mark = "") {
  S text, units(mark);
  for (std::size_t i = 0; i < std::size(kGrammar); ++i) {
    text += kGrammar[i].line;
    if (!open || i + 1 < std::size(kGrammar)) text += ends.begin()[i % ends.size()];
  }
  for (char c : text) units += {c, '\0'};
  return wide ? units : text;
}

// BaseDir becomes the file's folder whether or not the file holds lines; FF FE with one byte
// behind it leaves that byte to be read as a character. An element is cut to 260 characters
// without a NUL and then trimmed; a line of more than 1025 characters goes on as a further one.
TEST_F(FiorTableFile, FilesAndTheirTables) {
  S grammar;
  for (const auto& g : kGrammar) grammar += g.node.empty() ? "" : S(g.node) + "\n";
  const S p(300, 'p'), d(300, 'd'), y(1100, 'y');
  const struct { const char* what; S bytes, want; } files[] = {
      {"CR LF and 26, open end", GrammarFile({"\r\n", "\x1a", "\r\x1a"}, true, false), grammar},
      {"16-bit, a mark, open end", GrammarFile({"\r\n", "\x1a"}, true, true, "\xFF\xFE"), grammar},
      {"16-bit without a mark", GrammarFile({"\n"}, false, true), grammar},
      {"empty", "", ""},
      {"a mark and LF", "\xFF\xFE\n", ""},
      {"long elements", p + "=" + d + ";b",
       "[" + p.substr(0, 260) + "] {" + d.substr(0, 260) + "} {b}\n"},
      {"long after blanks", "  " + p + "=x", "[" + p.substr(0, 258) + "] {x}\n"},
      {"long line", "x=" + y, "[x] {" + y.substr(0, 260) + "}\n[" + y.substr(0, 77) + "] {" +
                                  y.substr(0, 77) + "}\n"}};
  for (const auto& f : files) {
    std::strcpy(red_.BaseDir, "X:\\before");
    Put("paths.txt", f.bytes);
    const S full = Full("paths.txt");
    red_.Init(brelt::test::HighOf(full), full.c_str());
    EXPECT_EQ(Dump(red_) + red_.BaseDir, f.want + Dir()) << f.what;
  }
}

// A relative name counts from the current directory, not from BaseDir. A failed Init drops the
// old table and keeps BaseDir and DefaultDir; Done empties DefaultDir and keeps BaseDir, and a
// second Done does nothing.
TEST_F(FiorTableFile, WhatInitAndDoneLeave) {
  MakeFolder("cfg");
  Put("cfg/paths.txt", "*.ini = etc\n");
  std::strcpy(red_.BaseDir, "X:\\before");
  red_.Init(13, "cfg\\paths.txt");
  EXPECT_EQ(Dump(red_), "[*.ini] {etc}\n");
  std::strcpy(red_.DefaultDir, "E:\\def");
  red_.Init(11, "missing.txt");
  EXPECT_EQ(FIO::IOresult(), 2u);
  EXPECT_EQ(Dump(red_) + red_.BaseDir + "|" + red_.DefaultDir, Full("cfg") + "|E:\\def");
  red_.Init(13, "cfg\\paths.txt");
  for (int i = 0; i < 2; ++i) {
    red_.Done();
    EXPECT_EQ(Dump(red_) + red_.BaseDir + "|" + red_.DefaultDir, Full("cfg") + "|") << i;
  }
}

}  // namespace
