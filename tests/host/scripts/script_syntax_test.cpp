#include "host/scripts/script_syntax.h"

#include <gtest/gtest.h>

#include "tests/failure.h"

namespace {

using namespace brevan;

TEST(ScriptSyntax, WordsStringsCommentsAndLineEnds) {
  const Script script = readScript("a.scr",
                                   "\xEF\xBB\xBF# a comment\r\n"
                                   "  layer \"A \\\"B\\\" \\\\ # C\"  # more\r"
                                   "\n\n"
                                   "draw text 1 2 35 \"\xC3\xA9 \\n\"\n"
                                   "macro  #NEWLAYER \"a  \\ \"\"b\"\"\" # typed\n"
                                   "space");
  ASSERT_EQ(script.statements.size(), 4U);
  EXPECT_EQ(script.statements[0].words.at(1).text, "A \"B\" \\ # C");
  EXPECT_TRUE(script.statements[0].words[1].quoted);
  EXPECT_EQ(script.statements[0].line, 2);
  EXPECT_EQ(script.statements[1].words.at(5).text, "\xE9 \\n") << "inside, texts are Windows-1252";
  EXPECT_EQ(script.statements[1].line, 4);
  EXPECT_EQ(script.statements[2].rest, "#NEWLAYER \"a  \\ \"\"b\"\"\" # typed") << "a macro is taken as typed";
  EXPECT_EQ(script.statements[3].line, 6);
  EXPECT_EQ(script.lastLine, 6);
}

TEST(ScriptSyntax, MistakesNameTheirLine) {
  const std::pair<std::string_view, const char*> rows[] = {
      {"space\n\nlayer \"A", "a.scr:3: a string without its closing quotation mark"},
      {"\r\nlayer \"\xE4\xB8\xAD\"", "a.scr:2: a text holds a character that Windows-1252 lacks: <U+4E2D>"},
      {"layer \"\xFF\"", "a.scr:1: a text holds a character that Windows-1252 lacks: <FF>"},
      {std::string_view("space\nsp\0ace", 12), "a.scr:2: a script is text and holds no NUL byte"},
      {"", ""}};
  for (const auto& [text, told] : rows) {
    EXPECT_EQ(failureOf([&] { readScript("a.scr", text); }), told);
  }
}

}  // namespace
