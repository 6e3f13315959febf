// Path text: SplitPathA/W, SplitAllPathA, MakeAllPathA, the extension operations,
// WildcardTail, ExpandPath2, MakePath2 and JoinPathA over any text, every output in a
// guard-page array with a small random bound.
// Invariants: nothing is written past a bound, nor behind an output's text and its NUL (in
// place: behind the new text's NUL nothing changes); a cut output is the uncut result cut to
// its capacity; SplitPath's directory and name give the path back, with the backslash between
// them only where the directory stands above a root; SplitAllPathA's four parts joined give the
// path when none filled its array, and MakeAllPathA joins them back; the extension found after
// ChangeExtension is the one given; IsExtension agrees with GetExtension for a plain extension;
// a full form with a drive that fitted holds no "." or ".." component and expands to itself.
//
// Input: the path text and the extension text; then from the back the twin and scan width,
// the code page, and per operation its flags and bounds.
#include <brelt/fior.h>
#include <brelt/str/case.h>

#include <algorithm>
#include <cstring>

#include "fuzz_text.h"

namespace {

using namespace brelt::fuzz;

constexpr std::size_t kRoom = 1024;  // a capacity that every result here fits

template <class T>
bool IsSep(T c) {
  return c == T('\\');
}
bool HasAny(const std::string& s, const char* chars) {
  return s.find_first_of(chars) != std::string::npos;
}

// A fresh destination: `cap` elements the library may write ('#' filler), then a few that it
// must not touch.
template <class T>
struct Dest {
  Guarded<T> array;
  std::size_t cap;
  unsigned high() const { return static_cast<unsigned>(cap - 1); }
  T* data() { return array.data(); }
  String<T> Text() const { return Measured(array.data(), cap); }
};

template <class T>
Dest<T> MakeDest(std::size_t cap, std::size_t spare) {
  return {Guarded<T>(cap + spare), cap};
}

// Room for everything, or a capacity at most one above `want` (the uncut length), so that
// most picks cut the result or fill the array exactly.
template <class T>
Dest<T> TakeDest(FuzzedDataProvider& in, std::size_t want) {
  const auto pick = in.ConsumeIntegral<std::uint8_t>();
  const std::size_t spare = in.ConsumeBool() ? 2 : 0;
  const std::size_t cap = pick >= 0xF0 ? kRoom : 1 + pick % (want + 2);
  return MakeDest<T>(cap, spare);
}

// `full` cut to the capacity, a NUL behind it where there is room, and nothing else written.
template <class T>
void CheckCut(const Dest<T>& d, const String<T>& full) {
  const std::size_t kept = std::min(full.size(), d.cap);
  BRELT_FUZZ_CHECK(std::equal(full.begin(), full.begin() + kept, d.array.data()));
  if (kept < d.cap) BRELT_FUZZ_CHECK(d.array[kept] == T{0});
  for (std::size_t i = kept + 1; i < d.array.size(); ++i) {
    BRELT_FUZZ_CHECK(d.array[i] == T('#'));
  }
}

// An array edited in place from `before` (bound `high`) to the text `want`: that text cut to
// high + 1 elements, its NUL where there is room, and behind that the array as it was.
void CheckInPlace(const Text<char>& after, unsigned high, const std::string& before,
                  const std::string& want) {
  const std::size_t cap = std::size_t{high} + 1;
  const std::size_t kept = std::min(want.size(), cap);
  const char* now = after.array.data();
  BRELT_FUZZ_CHECK(std::equal(want.begin(), want.begin() + kept, now));
  if (kept < cap) BRELT_FUZZ_CHECK(now[kept] == '\0');
  for (std::size_t i = kept + 1; i < before.size(); ++i) BRELT_FUZZ_CHECK(now[i] == before[i]);
}

template <class T>
struct Split;
template <>
struct Split<char> {
  static constexpr auto Path = FIOR::SplitPathA;
};
template <>
struct Split<WChar> {
  static constexpr auto Path = FIOR::SplitPathW;
};

// A source's bound: as placed, or sometimes a random one inside the array (the text then ends
// there unless a NUL comes first).
template <class T>
unsigned TakeSourceHigh(FuzzedDataProvider& in, const Text<T>& t) {
  if (!in.ConsumeBool()) return t.high;
  return in.ConsumeIntegralInRange<unsigned>(0, static_cast<unsigned>(t.size() - 1));
}
template <class T>
String<T> Seen(const Text<T>& t, unsigned high) {
  return high == kAll ? t.text : Measured(t.array.data(), std::uint64_t{high} + 1);
}

template <class T>
void FuzzSplitPath(FuzzedDataProvider& in, const std::string& bytes) {
  const Text<T> path = Make<T>(in, bytes);
  const unsigned high = TakeSourceHigh(in, path);
  const String<T> p = Seen(path, high);
  Dest<T> dir = MakeDest<T>(kRoom, 0), name = MakeDest<T>(kRoom, 0);
  Split<T>::Path(high, path.array.data(), dir.high(), dir.data(), name.high(), name.data());
  const String<T> d = dir.Text(), n = name.Text();
  BRELT_FUZZ_CHECK(std::none_of(n.begin(), n.end(), IsSep<T>));
  if (p == d + n) {
    // A directory that ends in a backslash here ends at its root: "C:\", "ab\", "\\srv\sh\".
    const bool twoSeps = p.size() >= 2 && IsSep(p[0]) && IsSep(p[1]);
    if (!n.empty() && !d.empty() && IsSep(d.back())) BRELT_FUZZ_CHECK(d.size() == 3 || twoSeps);
  } else {
    BRELT_FUZZ_CHECK(p == d + T('\\') + n && d.size() >= 3);
  }
  Dest<T> dirCut = TakeDest<T>(in, d.size()), nameCut = TakeDest<T>(in, n.size());
  Split<T>::Path(high, path.array.data(), dirCut.high(), dirCut.data(), nameCut.high(),
                 nameCut.data());
  CheckCut(dirCut, d);
  CheckCut(nameCut, n);
}

// The four parts of `p` in arrays of the given capacities (the path array holds a NUL).
struct Parts {
  Dest<char> drive, dir, name, ext;
};
Parts SplitAll(const Text<char>& path, unsigned high, Parts parts) {
  FIOR::SplitAllPathA(high, path.array.data(), parts.drive.high(), parts.drive.data(),
                      parts.dir.high(), parts.dir.data(), parts.name.high(), parts.name.data(),
                      parts.ext.high(), parts.ext.data());
  return parts;
}
Dest<char> MakeAll(std::size_t cap, Parts& p) {
  Dest<char> dst = MakeDest<char>(cap, 2);
  FIOR::MakeAllPathA(dst.high(), dst.data(), p.drive.high(), p.drive.data(), p.dir.high(),
                     p.dir.data(), p.name.high(), p.name.data(), p.ext.high(), p.ext.data());
  return dst;
}

void FuzzSplitAll(FuzzedDataProvider& in, const std::string& bytes) {
  // Only the NUL ends this path: its bound is not read, so any value goes.
  const unsigned flags = in.ConsumeIntegral<std::uint8_t>() & ~kNoNul;
  const Text<char> path = Place<char>(Chars<char>(bytes, flags), flags);
  const unsigned high = in.ConsumeIntegral<unsigned>();
  const std::string& p = path.text;
  Parts full = SplitAll(path, high, {MakeDest<char>(kRoom, 0), MakeDest<char>(kRoom, 0),
                                     MakeDest<char>(kRoom, 0), MakeDest<char>(kRoom, 0)});
  const std::string drive = full.drive.Text(), dir = full.dir.Text(), name = full.name.Text(),
                    ext = full.ext.Text();
  BRELT_FUZZ_CHECK(drive + dir + name + ext == p);
  const bool hasDrive = (p.size() >= 2 && p[1] == ':') || (p.size() >= 3 && p[2] == ':');
  BRELT_FUZZ_CHECK(drive == (hasDrive ? p.substr(0, p.find(':') + 1) : ""));
  BRELT_FUZZ_CHECK(dir.empty() || dir.back() == '\\' || dir.back() == '/');
  BRELT_FUZZ_CHECK(!HasAny(name + ext, "\\/"));
  if (ext.empty()) {
    BRELT_FUZZ_CHECK(!HasAny(name, "."));
  } else {
    BRELT_FUZZ_CHECK(ext[0] == '.' && !HasAny(ext.substr(1), "."));
  }
  // The parts join back into the path, and a short destination takes the joined text cut.
  BRELT_FUZZ_CHECK(MakeAll(kRoom, full).Text() == p);
  CheckCut(MakeAll(1 + in.ConsumeIntegral<std::uint8_t>() % (p.size() + 2), full), p);

  Parts cut = SplitAll(path, high,
                       {TakeDest<char>(in, drive.size()), TakeDest<char>(in, dir.size()),
                        TakeDest<char>(in, name.size()), TakeDest<char>(in, ext.size())});
  CheckCut(cut.drive, drive);
  const bool driveWhole = cut.drive.cap >= drive.size();
  if (driveWhole) {
    CheckCut(cut.dir, dir);
    CheckCut(cut.name, name);
    CheckCut(cut.ext, ext);
  }
  // What a drive array too small leaves goes on into the next parts; with no part full,
  // nothing is lost.
  bool anyFull = false;
  for (const Dest<char>* d : {&cut.drive, &cut.dir, &cut.name, &cut.ext}) {
    anyFull = anyFull || d->Text().size() == d->cap;
  }
  if (!anyFull) {
    BRELT_FUZZ_CHECK(cut.drive.Text() + cut.dir.Text() + cut.name.Text() + cut.ext.Text() == p);
  }
}

// MakeAllPathA over four texts of any content: the parts in order, a backslash behind a
// directory that ends in no separator, a dot in front of an extension that has none.
void FuzzMakeAll(FuzzedDataProvider& in, const std::string& pathBytes,
                 const std::string& extBytes) {
  const Text<char> drive = Make<char>(in, extBytes), dir = Make<char>(in, pathBytes),
                   name = Make<char>(in, pathBytes.substr(pathBytes.size() / 2)),
                   ext = Make<char>(in, extBytes.substr(extBytes.size() / 2));
  std::string want = drive.text;
  if (!dir.text.empty()) {
    want += dir.text;
    if (want.back() != '\\' && want.back() != '/') want += '\\';
  }
  want += name.text;
  if (!ext.text.empty()) want += (ext.text[0] == '.' ? "" : ".") + ext.text;
  Dest<char> dst = TakeDest<char>(in, want.size());
  FIOR::MakeAllPathA(dst.high(), dst.data(), drive.high, drive.array.data(), dir.high,
                     dir.array.data(), name.high, name.array.data(), ext.high, ext.array.data());
  CheckCut(dst, want);
}

// Names that take no extension: empty, ".", a backslash, a drive, or "..", "x\.", "C:\", ".\".
bool TakesNoExtension(const std::string& t) {
  if (t.empty() || t == "." || t == "\\" || t.back() == ':') return true;
  return t.size() >= 2 && (t.back() == '.' || t.back() == '\\') &&
         HasAny(t.substr(t.size() - 2, 1), ".:\\");
}

std::string Lower(std::string s) {
  for (char& c : s) c = (c >= 'A' && c <= 'Z') ? static_cast<char>(c - 'A' + 'a') : c;
  return s;
}

void FuzzExtensions(FuzzedDataProvider& in, const std::string& nameBytes,
                    const std::string& extBytes) {
  // The name, edited in place, with room behind its text; its bound never all ones.
  const unsigned flags = in.ConsumeIntegral<std::uint8_t>() & ~kAllOnes;
  const std::string chars = Chars<char>(nameBytes, flags);
  const std::size_t spare = in.ConsumeIntegralInRange(0, 8);
  const Text<char> original = Place<char>(chars, flags, spare);
  const unsigned high = TakeSourceHigh(in, original);
  const std::string before = original.Now();
  const std::string t = Seen(original, high);
  const Text<char> ext = Make<char>(in, extBytes);
  const std::string& e = ext.text;
  auto fresh = [&] { return Place<char>(chars, flags, spare); };

  // GetExtension: the text behind the last dot, when no backslash follows that dot.
  const std::size_t sep = t.rfind('\\'), dot = t.rfind('.');
  const bool has = dot != std::string::npos && (sep == std::string::npos || dot > sep);
  Dest<char> got = MakeDest<char>(kRoom, 0);
  FIOR::GetExtensionA(high, original.array.data(), got.high(), got.data());
  const std::string g = got.Text();
  BRELT_FUZZ_CHECK(has ? t.size() > g.size() && t.substr(t.size() - g.size() - 1) == "." + g
                       : g.empty());
  BRELT_FUZZ_CHECK(!HasAny(g, ".\\"));
  Dest<char> gotCut = TakeDest<char>(in, g.size());
  FIOR::GetExtensionA(high, original.array.data(), gotCut.high(), gotCut.data());
  CheckCut(gotCut, g);

  Text<char> removed = fresh();
  FIOR::RemoveExtensionA(high, removed.data());
  const std::string stem = has ? t.substr(0, dot) : t;
  CheckInPlace(removed, high, before, stem);

  Text<char> added = fresh();
  FIOR::AddExtensionA(high, added.data(), ext.high, ext.array.data());
  CheckInPlace(added, high, before, has ? t : t + "." + e);

  Text<char> changed = fresh();
  FIOR::ChangeExtensionA(high, changed.data(), ext.high, ext.array.data());
  std::string want = t;
  if (!TakesNoExtension(t)) {
    want = has ? stem : t.back() == '\\' ? t.substr(0, t.size() - 1) : t;
    want += "." + e;
  }
  CheckInPlace(changed, high, before, want);
  // Read back, a plain extension that fitted is the one found.
  if (!TakesNoExtension(t) && !HasAny(e, ".\\") && want.size() <= high) {
    Dest<char> again = MakeDest<char>(kRoom, 0);
    FIOR::GetExtensionA(high, changed.data(), again.high(), again.data());
    BRELT_FUZZ_CHECK(again.Text() == e);
  }

  // For a plain ASCII extension, IsExtension is GetExtension compared without case.
  const unsigned char is =
      FIOR::IsExtensionA(high, original.array.data(), ext.high, ext.array.data());
  BRELT_FUZZ_CHECK(is <= 1);
  const bool ascii = std::all_of(t.begin(), t.end(), [](char c) { return c > 0; }) &&
                     std::all_of(e.begin(), e.end(), [](char c) { return c > 0; });
  if (ascii && !e.empty() && !HasAny(e, ".\\*?") && t.size() <= 259) {
    BRELT_FUZZ_CHECK(is == (Lower(g) == Lower(e) ? 1 : 0));
  }
}

// WildcardTail: the base name, from behind the last colon or backslash to its last dot
// (a dot at its start does not count), becomes one asterisk.
void FuzzWildcardTail(FuzzedDataProvider& in, const std::string& nameBytes) {
  const unsigned flags = in.ConsumeIntegral<std::uint8_t>() & ~kAllOnes;
  const std::string chars = Chars<char>(nameBytes, flags);
  Text<char> name = Place<char>(chars, flags, in.ConsumeIntegralInRange(0, 4));
  const unsigned high = TakeSourceHigh(in, name);
  const std::string before = name.Now();
  const std::string t = Seen(name, high);
  const std::size_t last = t.find_last_of(":\\");
  const std::size_t start = last == std::string::npos ? 0 : last + 1;
  std::string want = t;
  if (!t.empty() && start <= high) {
    const std::size_t dot = t.rfind('.');
    const bool ext = dot != std::string::npos && dot > start;
    want = t.substr(0, start) + "*" + (ext ? t.substr(dot) : "");
  }
  FIOR::WildcardTailA(high, name.data());
  CheckInPlace(name, high, before, want);
}

// ExpandPath2 from one of a few base directories, cut to a small array and whole; MakePath2
// and JoinPathA for their bounds.
void FuzzExpand(FuzzedDataProvider& in, const std::string& pathBytes,
                const std::string& dirBytes) {
  static FIOR::CRed1A table;
  static const char* const kBases[] = {"", "C:\\base", "E:\\b\\", "\\\\srv\\share"};
  std::strcpy(table.BaseDir, kBases[in.ConsumeIntegral<std::uint8_t>() % 4]);
  const unsigned flags = in.ConsumeIntegral<std::uint8_t>();
  Text<char> src = Place<char>(Chars<char>(pathBytes, flags), flags);
  const unsigned high = TakeSourceHigh(in, src);
  const unsigned char flag = in.ConsumeBool() ? 1 : 0;

  Dest<char> whole = MakeDest<char>(kRoom, 0);
  table.ExpandPath2(high, src.data(), whole.high(), whole.data(), flag);
  const std::string full = whole.Text();
  BRELT_FUZZ_CHECK(full.size() <= 260);
  Dest<char> cut = TakeDest<char>(in, full.size());
  table.ExpandPath2(high, src.data(), cut.high(), cut.data(), flag);
  CheckCut(cut, full);

  // A relative path from an empty base may come out looking like one with a drive ("::a:\q"
  // gives "a:\q"); only a head as expansion writes it (a capital, no blank) marks a full form.
  const bool drive = full.size() >= 3 && full[1] == ':' && full[2] == '\\' &&
                     Str::CapA(full[0]) == full[0] && !HasAny(full.substr(0, 1), "\t\n\r ");
  if (full.size() < 259 && drive) {
    for (std::size_t at = 3; at < full.size();) {
      const std::size_t end = std::min(full.find('\\', at), full.size());
      const std::string part = full.substr(at, end - at);
      BRELT_FUZZ_CHECK(part != "." && part != "..");
      at = end + 1;
    }
    Dest<char> again = MakeDest<char>(kRoom, 0);
    table.ExpandPath2(static_cast<unsigned>(full.size()), full.c_str(), again.high(),
                      again.data(), flag);
    BRELT_FUZZ_CHECK(again.Text() == full);
  }

  Text<char> dir = Place<char>(Chars<char>(dirBytes, 0), 0);
  Dest<char> made = TakeDest<char>(in, 260);
  table.MakePath2(made.high(), made.data(), dir.high, dir.data(), high, src.data(), flag);
  Dest<char> joined = TakeDest<char>(in, 260);
  FIOR::JoinPathA(joined.high(), joined.data(), dir.high, dir.data(), high, src.data());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  FuzzedDataProvider in(data, size);
  const std::string path = in.ConsumeRandomLengthString(400);
  const std::string ext = in.ConsumeRandomLengthString(24);
  ForTwin(in, [&](auto twin) { FuzzSplitPath<decltype(twin)>(in, path); });
  TakeCodePage(in);
  FuzzSplitAll(in, path);
  FuzzMakeAll(in, path, ext);
  FuzzExtensions(in, path, ext);
  FuzzWildcardTail(in, path);
  FuzzExpand(in, path, ext);
  return 0;
}
