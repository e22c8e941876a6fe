#include "host/scripts/script_user.h"

#include <gtest/gtest.h>

#include <functional>

#include "frame/host/core_services.h"
#include "fuzz/every_control.h"
#include "fuzz/json_check.h"
#include "host/scripts/transcript.h"
#include "tests/failure.h"
#include "tests/host/window/host_session.h"

namespace {

using namespace brevan;

class Answers : public HostSession {
 protected:
  // The failure of a command that a script answers, "" where there is none; an answer left over is named.
  std::string failureOf(const std::string& answers, const std::function<void()>& command) {
    start(answers);
    const std::string failure = ::failureOf(command);
    return failure.empty() && answersLeft() ? "answers are left over" : failure;
  }
  std::string dialogFailure(const std::string& answers) {
    every_.emplace();
    return failureOf("dialog \"Every Control\"\n" + answers,
                     [this] { host().mainFrame().RunDialog(every_->dialog, nullptr); });
  }
  void askPoint() {
    double x = 0.0;
    double y = 0.0;
    window().gsGetPointFromUser("Where", x, y);
  }
  std::optional<EveryControl> every_;
};

TEST_F(Answers, AnswersOfTheWrongKindAreNamed) {
  const auto point = [this] { askPoint(); };
  const auto text = [this] {
    std::string typed;
    window().gsGetTextFromPromptBar("Name", typed, 0);
  };
  const auto menu = [this] { window().gsSubMenu("&One,Two"); };
  const auto question = [this] { window().gsReply("Sure?"); };
  const auto pen = [this] {
    int chosen = 1;
    window().gsSetupPenDialog("Pen", chosen);
  };
  const auto file = [] {
    std::string path;
    coreChooseFile(nullptr, true, "All|*.*||", "", "", path);
  };
  const std::vector<std::tuple<std::string, std::function<void()>, std::string>> cases = {
      {"menu \"One\"", point, "answers.scr:1: \"Where\" asks for a point, the script gave: menu \"One\""},
      {"", point, "answers.scr:1: \"Where\" asks for a point, the script ends"},
      {"\n\npoint 1", point, "answers.scr:3: point expects 2 words after it, got 1"},
      {"point 1 \"2\"", point, "answers.scr:1: point expects a number, got \"2\""},
      {"point 1,5 2", point, "answers.scr:1: point expects a number, got \"1,5\""},
      {"point nan 2", point, "answers.scr:1: point expects a number, got \"nan\""},
      {"point 1 2", text, "answers.scr:1: \"Name\" asks for a text, the script gave: point 1 2"},
      {"text \"a\" \"b\"", text, "answers.scr:1: text expects 1 words after it, got 2"},
      {"space", menu, "answers.scr:1: the command shows a menu with \"One\", \"Two\", the script gave: space"},
      {"menu \"&One\"", menu, "answers.scr:1: the menu has no item \"&One\", it has \"One\", \"Two\""},
      {"point 1 2", question, "answers.scr:1: the question \"Sure?\" waits for a reply, the script gave: point 1 2"},
      {"reply cancel", question,
       "answers.scr:1: the question \"Sure?\" takes yes or no, the script gave: reply cancel"},
      {"pen 257", pen, "answers.scr:1: a pen is 1 to 256, got 257"},
      {"pen 1.5", pen, "answers.scr:1: pen expects a whole number, got \"1.5\""},
      {"cancel", point, "answers.scr:1: \"Where\" asks for a point, the script gave: cancel"},
      {"file \"a\" of \"b\"", file, "answers.scr:1: file expects a path, or a path, as and a filter"},
      {"file \"a\" as", file, "answers.scr:1: file expects a path, or a path, as and a filter"},
      {"file \"a\" as \"Text\"", file, "answers.scr:1: the chooser has no filter \"Text\", it has \"All\""},
      {"pen 3", file, "answers.scr:1: the command asks for a file to open, the script gave: pen 3"},
      {"dialog \"Every Control\"", point,
       "answers.scr:1: \"Where\" asks for a point, the script gave: dialog \"Every Control\""},
  };
  for (const auto& [answers, command, failure] : cases) { EXPECT_EQ(failureOf(answers, command), failure); }
  EXPECT_EQ(failureOf("file \"a\" as \"All\"", file), "");
  EXPECT_EQ(failureOf("point 1 2\npoint 3 4", point), "answers are left over");
}

TEST_F(Answers, AFileComesWithTheFilterItWasChosenBy) {
  const std::tuple<const char*, int, bool> rows[] = {{"\"a.csv\"", 2, false},
                                                     {"\"a.JSON\"", 2, false},
                                                     {"\"a.dat\"", 1, false},
                                                     {"\"a.csv\" as \"listing\"", 1, true},
                                                     {"\"a.dat\" as \"Tables (*.csv)\"", 2, true}};
  for (const auto& [answer, wanted, told] : rows) {
    Transcript transcript;
    start(std::string("file ") + answer + "\n", &transcript);
    std::string path;
    int filter = 0;
    coreChooseFile(nullptr, true, " Listing (*.txt)|*.txt| Tables (*.csv)|*.csv;*.json||", "txt", "", path, &filter);
    EXPECT_EQ(filter, wanted) << answer;
    EXPECT_EQ(transcript.lines().find("\"filter\":") != std::string::npos, told) << answer;
  }
}

TEST_F(Answers, MessagesAreAcknowledgedUnlessAwaited) {
  const auto tell = [this] {
    InfoMessage("Done.", nullptr);
    askPoint();
  };
  const std::pair<const char*, const char*> rows[] = {
      {"", ""},
      {"expect message \"Done.\"\n", ""},
      {"reply ok # seen\n", ""},
      {"expect message \"Done.\"\nexpect no message\n", ""},
      {"expect message \"Drawn.\"\n", "answers.scr:1: the message is \"Done.\", the script expects \"Drawn.\""},
      {"expect no message\n", "answers.scr:1: there was the message \"Done.\""}};
  for (const auto& [answers, told] : rows) { EXPECT_EQ(failureOf(answers + std::string("point 1 2"), tell), told); }
  EXPECT_EQ(failureOf("expect message \"Done.\"\npoint 1 2", [this] { askPoint(); }),
            "answers.scr:1: the command shows the prompt \"Where\", the script gave: expect message \"Done.\"");
  EXPECT_EQ(failureOf("expect message \"Sure?\"\nreply yes", [this] { EXPECT_EQ(window().gsReply("Sure?"), 1); }), "");
}

TEST_F(Answers, AQuestionIsAnsweredByTheNamesOfItsAnswers) {
  const auto question = [this](int expected, int escaped) {
    return [this, expected, escaped] {
      EXPECT_EQ(window().gsReply("How", {"Horizontal", "Parallel"}), expected);
      EXPECT_EQ(window().gsEscapePressed(), escaped);
    };
  };
  EXPECT_EQ(failureOf("reply \"Horizontal\"", question(1, 0)), "");
  EXPECT_EQ(failureOf("reply Parallel", question(0, 0)), "");
  EXPECT_EQ(failureOf("reply no", question(0, 0)), "");
  EXPECT_EQ(failureOf("reply cancel", question(0, 1)), "");
  EXPECT_EQ(failureOf("reply Upright", question(0, 0)),
            "answers.scr:1: the question \"How\" takes \"Horizontal\" or \"Parallel\" or cancel, the script gave: "
            "reply Upright");
}

// Work on thousands of things shows its count; in a script's report that would bury everything else.
TEST_F(Answers, ACountIsReportedByItsFirstAndItsLast) {
  start("point 1 2");
  std::vector<std::string> reported;
  user().report = [&reported](const std::string& text) { reported.push_back(text); };
  for (const char* status : {"Copying 1", "Copying 2", "Copying 3", "Done", "Done", "Cutting 1", "Cutting 2"}) {
    window().gsSetStatus(status);
  }
  EXPECT_EQ(reported, (std::vector<std::string>{"Copying 1", "Copying 3", "Done", "Done", "Cutting 1"}));
  askPoint();
  EXPECT_EQ(reported.back(), "Cutting 2") << "told before the next answer is taken";
}

TEST_F(Answers, EveryExpectationHoldsOrFails) {
  EXPECT_EQ(failureOf("expect prompt \"Where\"\nexpect status \"\"\npoint 1 2", [this] { askPoint(); }), "");
  EXPECT_EQ(failureOf("expect prompt \"Whither\"\npoint 1 2", [this] { askPoint(); }),
            "answers.scr:1: the prompt is \"Where\", the script expects \"Whither\"");
  EXPECT_EQ(failureOf("expect status \"Tracing\"\npoint 1 2",
                      [this] {
                        window().gsSetStatus("Drawing");
                        askPoint();
                      }),
            "answers.scr:1: the status is \"Drawing\", the script expects \"Tracing\"");
  EXPECT_NE(failureOf("expect no prompt\npoint 1 2", [this] { askPoint(); }), "") << "a check that cannot fail";
  EXPECT_NE(failureOf("expect menu \"Two\"\nmenu \"One\"", [this] { window().gsSubMenu("One,Two"); }), "");
  EXPECT_EQ(failureOf("expect menu \"One\"\nmenu \"One\"", [this] { window().gsSubMenu("One,Two"); }), "");
  every_.emplace();
  const auto shown = [this] { host().mainFrame().RunDialog(every_->dialog, nullptr); };
  EXPECT_EQ(failureOf("expect dialog \"Every Control\"\ndialog \"*\"\nclose", shown), "");
  EXPECT_NE(failureOf("expect dialog \"Other\"\ndialog \"*\"\nclose", shown), "");
}

TEST_F(Answers, ControlsAreExpectedInEveryState) {
  const std::vector<std::pair<std::string, std::string>> pairs = {
      {"expect \"Length\" 0", "expect \"Length\" 1"},
      {"expect \"Length\" \"0.000\"", "expect \"Length\" \"\""},
      {"expect \"Length\" enabled", "expect \"Length\" disabled"},
      {"expect \"Length\" shown", "expect \"Length\" hidden"},
      {"expect \"Secret\" hidden", "expect \"Secret\" shown"},
      {"expect \"Sketch\" picture \"bolt\"", "expect \"Sketch\" picture \"nut\""},
      {"expect \"Thread\" items \"Coarse\" \"Fine\"", "expect \"Thread\" items \"Coarse\""},
      {"expect \"Thread\" items \"Coarse\" \"Fine\"", "expect \"Thread\" items \"Fine\" \"Coarse\""},
      {"expect focus \"Length\"", "expect focus \"Name\""},
      {"expect dialog \"Every Control\"", "expect dialog \"Other\""},
      {"expect \"Plan\" 0", "expect \"Plan\" 1"},
  };
  for (const auto& [holds, fails] : pairs) {
    EXPECT_EQ(dialogFailure(holds + "\nclose\n"), "");
    EXPECT_NE(dialogFailure(fails + "\nclose\n"), "") << fails;
  }
  EXPECT_EQ(
      dialogFailure("set \"Length\" 4O\nexpect message \"\\\"Length\\\" takes 0 to 10000, got \\\"4O\\\"\"\nclose\n"),
      "");
}

TEST_F(Answers, DialogStatementsFailWithTheirLineAndRule) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"set \"Length\" 4O", "answers.scr:2: \"Length\" takes 0 to 10000, got \"4O\""},
      {"set \"Length\"", "answers.scr:2: set expects 2 or more words after it, got 1"},
      {"spin \"Copies\" upwards", "answers.scr:2: spin expects up or down, got upwards"},
      {"cell \"Walls\" one \"Name\" \"x\"", "answers.scr:2: cell expects a number, got \"one\""},
      {"cell \"Walls\" 1 \"\" \"x\"", "answers.scr:2: \"Walls\" has no column \"\""},
      {"tab \"None\"", "answers.scr:2: \"Pages\" has no entry \"None\", it has \"General\", \"Details\""},
      {"point 1 2", "answers.scr:2: the dialog \"Every Control\" is open, the script gave: point 1 2"},
      {"", "answers.scr:1: the dialog \"Every Control\" is open, the script ends"},
  };
  for (const auto& [answer, failure] : cases) { EXPECT_EQ(dialogFailure(answer), failure); }
  const std::string unknown = dialogFailure("set \"Lenght\" 1\n");
  EXPECT_TRUE(unknown.starts_with("answers.scr:2: the dialog \"Every Control\" has no control \"Lenght\", it has "));
  for (const char* address : {"\"Length\"", "\"Top/Width\"", "\"Walls\"", "\"OK\""}) {
    EXPECT_NE(unknown.find(address), std::string::npos) << unknown;
  }
  EXPECT_NE(dialogFailure("set \"Width\" 1\n").find("several controls are called \"Width\""), std::string::npos);
  EXPECT_EQ(failureOf("dialog \"Other\"", [this] { host().mainFrame().RunDialog(every_->dialog, nullptr); }),
            "answers.scr:1: the dialog is \"Every Control\", the script gave: dialog \"Other\"");
}

TEST_F(Answers, TheTranscriptIsJsonInTheOrderOfEvents) {
  Transcript transcript;
  start("point 1 2\nescape\ntext \"caf\xC3\xA9\"\naccept\nmenu \"One\"\nreply no\npen 4\ncancel\ndialog \"*\"\nclose\n",
        &transcript);
  askPoint();
  askPoint();
  std::string text;
  window().gsGetTextFromPromptBar("Name", text, 0);
  window().gsGetTextFromPromptBar("Name", text, 0);
  window().gsSubMenu("One,Two");
  window().gsReply("Sure?");
  int pen = 1;
  window().gsSetupPenDialog("Pen", pen);
  coreChooseFile(nullptr, false, "", "", "", text);
  every_.emplace();
  host().mainFrame().RunDialog(every_->dialog, nullptr);
  InfoMessage("\"Done\"\n", nullptr);
  window().gsExecuteMacro("NEWLAYER \"" + std::string("a\x80\xFF") + '"');
  window().gsExecuteMacro("FLY");
  line(0, 0, 1, 1e300);
  window().gsSetCurrCoord(-0.0, 1.5);
  std::string kinds;
  for (std::istringstream lines(transcript.lines()); std::getline(lines, text);) {
    EXPECT_TRUE(JsonCheck::valid(text)) << text;
    const std::string kind = text.substr(10, text.find('"', 10) - 10);
    kinds += kinds.empty() ? kind : ' ' + kind;
  }
  EXPECT_EQ(kinds,
            "window prompt prompt prompt prompt menu message chooser chooser dialog message macro macro status "
            "primitive call");
  for (const char* part :
       {"\"answer\":\"text\",\"value\":\"caf\xC3\xA9\"", "\"answer\":\"accept\",\"value\":\"caf\xC3\xA9\"",
        R"("text":"\"Done\"\n")", "FLY: column 1: there is no macro command FLY"}) {
    EXPECT_NE(transcript.lines().find(part), std::string::npos) << part;
  }
}

}  // namespace
