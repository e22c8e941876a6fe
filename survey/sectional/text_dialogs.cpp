#include "survey/sectional/text_dialogs.h"

#include <algorithm>
#include <utility>

#include "frame/host/dialog.h"

namespace ardenix::survey {

bool askTexts(const Services& services, const std::string& title, std::vector<LabelledText>& texts) {
  dialog::Dialog dialog(title);
  equip(dialog, services, helpTopic("Text"));
  dialog::Grid grid;
  grid.columns = {{.title = "Text", .width = 320}};
  for (const LabelledText& text : texts) {
    grid.rowHeadings.emplace_back(text.label);
    grid.rows.push_back({dialog::Cell{.text = text.text}});
  }
  const dialog::GridHandle handle = addGrid(dialog, {.name = "Texts"}, std::move(grid));
  addOkCancel(dialog, 1);
  if (!services.mainFrame->RunDialog(dialog, services.mainFrame)) { return false; }
  for (size_t row = 0; row < texts.size(); ++row) { texts[row].text = handle.grid().rows[row].front().text; }
  return true;
}

bool askNotes(const Services& services, std::string& notes) {
  constexpr int kMost = 10'000;
  dialog::Dialog dialog("Notes");
  equip(dialog, services, helpTopic("Notes"));
  const dialog::TextHandle text = addText(
      dialog, {.toolTip = "Text to be drawn in. Use Ctrl+Enter to start a new line", .name = "Notes"}, kMost, true);
  text.setText(notes);
  addLabel(dialog, {.place = {.row = 1}}, "Ctrl+Enter for new line");
  addOkCancel(dialog, 2);
  if (!services.mainFrame->RunDialog(dialog, services.mainFrame)) { return false; }
  notes = text.text();
  return true;
}

std::vector<size_t> chooseSections(const Services& services, std::vector<std::string> sections) {
  dialog::Dialog dialog("Sections");
  equip(dialog, services, helpTopic("Sections"));
  const std::vector<bool> none(sections.size(), false);
  const int list = addControl(
      dialog, dialog::ListBox{std::move(sections), true, none},
      {.caption = "Select sections to plot:", .toolTip = "List of sections generated using 'Trace Section'"});
  addOkCancel(dialog, 1);
  std::vector<size_t> chosen;
  if (!services.mainFrame->RunDialog(dialog, services.mainFrame)) { return chosen; }
  const std::vector<bool>& selected = dialog.state<dialog::ListBox>(list).selected;
  for (size_t item = 0; item < selected.size(); ++item) {
    if (selected[item]) { chosen.push_back(item); }
  }
  return chosen;
}

std::vector<std::string> linesOf(std::string_view text) {
  std::vector<std::string> lines;
  while (!text.empty()) {
    const size_t end = text.find('\n');
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
  }
  return lines;
}

std::vector<std::string> brokenIntoLines(std::string_view text, size_t letters) {
  std::vector<std::string> lines;
  while (text.size() > letters) {
    const size_t blank = text.rfind(' ', letters);
    const size_t end = blank == std::string_view::npos || blank == 0 ? letters : blank;
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(text.size(), blank == end ? end + 1 : end));
  }
  if (!text.empty()) { lines.emplace_back(text); }
  return lines;
}

}  // namespace ardenix::survey
