// FIOR: the redirection table read from its file, and emptied again.
//
// A line is "pattern = dir; dir; ...". The pattern is the line's first item between equals
// signs; the directories are the items of what follows the first "=" (or of the whole line,
// when it has none), taken until the first item that trims to nothing.
#include "brelt/fio.h"
#include "brelt/fior.h"
#include "brelt/storage.h"
#include "brelt/str/core.h"
#include "brelt/str/edit.h"
#include "brelt/str/encoding.h"
#include "brelt/str/items.h"
#include "fior/global_table.h"

namespace {

using brelt::fior::kPathHigh;

// A line of the file, as read: 1025 characters, longer lines go on as further lines.
constexpr unsigned int kLineHigh = 1024;

template <class Node>
Node* NewNode() {
  void* block = nullptr;
  Storage::Allocate(&block, sizeof(Node));
  Node* node = static_cast<Node*>(block);
  node->Next = nullptr;
  return node;
}

template <class Node>
void FreeNode(Node* node) {
  void* block = node;
  Storage::Free(&block);
}

void ReadLine(FIO::FileHandle file, bool wide, char (&line)[kLineHigh + 1]) {
  if (!wide) {
    FIO::RdStrA(file, kLineHigh, line);
    return;
  }
  brelt::WChar units[kLineHigh + 1];
  FIO::RdStrW(file, kLineHigh, units);
  Str::U2A(kLineHigh, units, kLineHigh, line);
}

// The directories of `text` (the line behind its first "="), in order, up to the first
// blank item. Null when the first is blank already.
FIOR::DirNode* ParseDirs(const char* text) {
  FIOR::DirNode* first = nullptr;
  FIOR::DirNode** tail = &first;
  FIOR::DirNode* node = NewNode<FIOR::DirNode>();
  for (unsigned int index = 0;; ++index) {
    Str::ItemSA(kPathHigh, node->Dir, kLineHigh, text, 0, ";", index);
    Str::TrimA(kPathHigh, node->Dir);
    if (node->Dir[0] == '\0') break;
    *tail = node;
    tail = &node->Next;
    node = NewNode<FIOR::DirNode>();
  }
  FreeNode(node);
  return first;
}

// One node for a line that is not empty; `line` loses its pattern and "=" on the way.
FIOR::PatternNode* ParseLine(char (&line)[kLineHigh + 1]) {
  FIOR::PatternNode* node = NewNode<FIOR::PatternNode>();
  node->Dirs = nullptr;
  Str::ItemSA(kPathHigh, node->Pattern, kLineHigh, line, 0, "=", 0);
  Str::TrimA(kPathHigh, node->Pattern);
  // Not found is all ones, and all ones + 1 deletes nothing.
  const unsigned int equals = Str::CharPosA(kLineHigh, line, '=');
  Str::DeleteA(kLineHigh, line, 0, equals + 1);
  node->Dirs = ParseDirs(line);
  return node;
}

}  // namespace

namespace FIOR {

// The name is taken from the current directory, not from BaseDir. BaseDir changes only when
// the file opens.
void CRed1A::Init(unsigned int high, const char* name) {
  char line[kLineHigh + 1];
  ExpandPath2(high, name, kLineHigh, line, 1);
  ClearList();
  const FileHandle file = FIO::OpenReadA(kLineHigh, line, 1);
  if (file == brelt::kInvalidFileHandle) return;
  const bool wide = FIO::IsUnicodeFile(file) != 0;

  Str::CopyA(kPathHigh, BaseDir, kLineHigh, line);
  const unsigned int slash = Str::RCharPosA(kPathHigh, BaseDir, '\\');
  if (slash != brelt::kNotFound) BaseDir[slash] = '\0';

  PatternNode** tail = &List;
  while (FIO::EndOfFile(file) == 0) {
    ReadLine(file, wide, line);
    if (line[0] == '\0') continue;
    *tail = ParseLine(line);
    tail = &(*tail)->Next;
  }
  FIO::Close(file);
}

void CRed1A::ClearList() {
  while (List != nullptr) {
    PatternNode* node = List;
    List = node->Next;
    while (node->Dirs != nullptr) {
      DirNode* dir = node->Dirs;
      node->Dirs = dir->Next;
      FreeNode(dir);
    }
    FreeNode(node);
  }
}

void CRed1A::Done() {
  ClearList();
  DefaultDir[0] = '\0';
}

void InitA(unsigned int high, const char* name) { brelt::fior::GlobalTable().Init(high, name); }

void Done() { brelt::fior::GlobalTable().Done(); }

}  // namespace FIOR
