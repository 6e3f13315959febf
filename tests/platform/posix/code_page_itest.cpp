// The POSIX layer's Windows-1252 table, both ways.
#include <gtest/gtest.h>

#include "platform/posix/code_page.h"

namespace {

using namespace brelt::platform::posix;

TEST(Windows1252, NamedBytesRoundTripsAndUnmappables) {
  struct Row { unsigned char byte; char16_t unit; } rows[] = {
      {0x41, u'A'}, {0x80, 0x20AC}, {0x8A, 0x0160}, {0x9F, 0x0178}, {0x81, 0x0081},
      {0x9D, 0x009D}, {0xA0, 0x00A0}, {0xFF, 0x00FF}, {0x00, 0x0000}};
  for (const Row& r : rows) EXPECT_EQ(Windows1252ToUnicode(r.byte), r.unit) << int(r.byte);
  for (int b = 0; b < 256; ++b) {
    ASSERT_EQ(UnicodeToWindows1252(Windows1252ToUnicode(static_cast<unsigned char>(b))), b);
  }
  // Latin-1 characters that the 0x80..0x9F row displaced, and anything beyond the page.
  for (char16_t u : {char16_t{0x0080}, char16_t{0x0099}, char16_t{0x0100}, char16_t{0xFFFF}}) {
    EXPECT_EQ(UnicodeToWindows1252(u), -1) << int(u);
  }
}

}  // namespace
