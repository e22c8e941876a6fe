#include "host/core/text_encoding.h"

#include <gtest/gtest.h>

#include "frame/host/core_services.h"
#include "host/core/text_lines.h"
#include "tests/failure.h"
#include "tests/host/core/line_ends.h"

using namespace brevan;

TEST(TextEncoding, everyByteGoesOutAndComesBack) {
  std::string all;
  for (int code = 0; code < 256; ++code) { all += static_cast<char>(code); }
  EXPECT_EQ(toWindows1252(toUtf8(all)), all);
  EXPECT_EQ(toUtf8("\x80 \xD8\x31\x30 \x99"), "€ Ø10 ™");
  EXPECT_EQ(toWindows1252("Gr\xC3\xB6\xC3\x9F\x65 “A”"), "Gr\xF6\xDF\x65 \x93\x41\x94");
  EXPECT_EQ(toUtf8("\x81"), "\xC2\x81");
}

TEST(TextEncoding, refusesWhatItCannotHold) {
  const std::string kinds[] = {"中",       "\xC2\x80",         "\xFF", "\xC3",    "\xC0\x80", "\xED\xA0\x80",
                               "\xE2\x82", "\xF4\x90\x80\x80", "\x80", "\xC3\x28"};
  for (const std::string& text : kinds) { EXPECT_EQ(toWindows1252("a" + text), std::nullopt) << messageText(text); }
  EXPECT_EQ(messageText("a中\xFF"), "a<U+4E2D><FF>");
}

TEST(TextEncoding, caseCountsForNothingWithAccents) {
  EXPECT_TRUE(equalWithoutCase("\xC4pfel \x8A", "\xE4PFEL \x9A"));
  EXPECT_FALSE(equalWithoutCase("\xD7", "\xF7"));  // the signs of multiplication and division
  EXPECT_EQ(keyHash("\xC4.B"), keyHash("\xE4.b"));
}

TEST(TextLines, allLineEndsGiveTheSameLines) {
  for (const std::string lineEnd : {"\r\n", "\n", "\r"}) {
    for (const char* const lines :
         {"one\n\nthree is longer than sixteen bytes\n", "one\n\nthree is longer than sixteen bytes"}) {
      const PlainText text = decodeText(withLineEnds(lines, lineEnd), "t");
      std::string seen;
      for (size_t at = 0; at < text.text.size();) {
        const LineSpan line = text.lineAt(at);
        seen.append(text.text, line.begin, line.textEnd - line.begin).append("|");
        at = line.end;
      }
      EXPECT_EQ(seen, "one||three is longer than sixteen bytes|");
      EXPECT_EQ(text.lineEnd(), lineEnd);
    }
  }
}

TEST(TextLines, unmarkedUtf8IsKnownByItsBytesWhereItMayBe) {
  const auto read = [](const char* bytes) { return decodeText(bytes, "t", Unmarked::kAsTheyLook).text; };
  EXPECT_EQ(read("\xC3\x98 12"), "\xD8 12");
  EXPECT_EQ(read("\xD8 12"), "\xD8 12");
  EXPECT_EQ(read("\xC3\x98 \xD8"), "\xC3\x98 \xD8");
  EXPECT_EQ(decodeText("\xC3\x98", "t").text, "\xC3\x98");
}

TEST(TextLines, refusalsNameFileAndLine) {
  const std::string longest(kMaxLineBytes, 'x');
  const std::pair<std::string, std::string> rows[] = {{std::string("a\r\nb\0c", 6), "f.ini:2: "},
                                                      {"\xFF\xFE.", "UTF-16"},
                                                      {"a\nb\n" + longest + 'x', "f.ini:3: "},
                                                      {"\xEF\xBB\xBF.\n中\n", "f.ini:2: "}};
  for (const auto& [bytes, told] : rows) {
    EXPECT_NE(failureOf([&] { decodeText(bytes, "f.ini"); }).find(told), std::string::npos) << told;
  }
  EXPECT_EQ(failureOf([&] { decodeText("a\nb\n" + longest + "\r\n", "f.ini"); }), "");
}
