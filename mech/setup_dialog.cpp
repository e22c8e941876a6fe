#include "mech/setup_dialog.h"

#include "frame/host/core_services.h"
#include "frame/messages.h"
#include "mech/annotation_commands.h"
#include "mech/line_style.h"

namespace ardenix::mech {

namespace {

constexpr int kPathLimit = 259;
constexpr double kWidestLine = 5.0;
constexpr std::string_view kDefaultFile = "ISO Mechspecs.ini";
constexpr std::string_view kSetupSection = "Setup";

std::string key(const LineStyleRow& row, std::string_view what) { return std::string(row.prefix).append(what); }

// What "Setup" holds for a key, or what is offered where nothing is loaded or the key is missing.
int offeredInt(const Configuration& configuration, const std::string& key, int offered) {
  return configuration.loaded() ? configuration.store().file().ReadInt(kSetupSection, key, offered) : offered;
}
double offeredDouble(const Configuration& configuration, const std::string& key, double offered) {
  return configuration.loaded() ? configuration.store().file().ReadDouble(kSetupSection, key, offered) : offered;
}

}  // namespace

SetupDialog::SetupDialog(const Services& services, Configuration& configuration)
    : services_(services), configuration_(configuration) {
  equip(dialog_, services_, helpTopic("Mechanical Setup"));
  const int files = dialog_.addGroup({.place = {.row = 0}});
  file_ = addText(dialog_,
                  {.caption = "Configuration file:",
                   .toolTip = "This is the file currently being used for Mechanical Ardenix configuration settings",
                   .group = files},
                  kPathLimit);
  addButton(dialog_, {.caption = "...",
                      .toolTip = "Browse for a Mechanical Ardenix configuration file",
                      .group = files,
                      .place = {.column = 1}})
      .onPress([this] { browse(); });
  for (size_t row = 0; row < styles_.size(); ++row) { styles_[row] = addStyleRow(row); }
  threadGap_ = addFloat(dialog_,
                        {.caption = "Thread gap:",
                         .toolTip = "Least distance on paper, in millimetres, between the two lines of a thread: 0.7 "
                                    "after ISO 128, 0 draws the thread where it is",
                         .place = {.row = 4}},
                        0.0, kWidestThreadGap, "%.2f");
  addButton(dialog_, {.caption = "Annotation Setup...",
                      .toolTip = "Click here to set up the Mechanical Ardenix annotation functions",
                      .place = {.row = 5}})
      .onPress([this] { runAnnotationSetup(services_, configuration_, &dialog_); });
  addOkCancel(dialog_, 6);
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

SetupDialog::StyleControls SetupDialog::addStyleRow(size_t row) {
  const LineStyleRow& style = lineStyleRows()[row];
  const std::string prefix(style.prefix);
  const int group =
      dialog_.addGroup({.caption = std::string(style.caption), .place = {.row = static_cast<int>(row) + 1}});
  const auto setting = [&](std::string_view what, std::string_view name, int column) {
    return dialog::Setting{.toolTip = numberText::format("The %s %s drawn by the Mechanical Ardenix", what, style.word),
                           .group = group,
                           .place = {.column = column},
                           .name = prefix + std::string(name)};
  };
  return {.linetype = addLineType(dialog_, setting("linetype to use for", " line type", 0)),
          .pen = addPen(dialog_, setting("pen colour to use for", " pen", 1)),
          .width = addFloat(dialog_, setting("width of", " width", 2), 0.0, kWidestLine, "%.2f")};
}

bool SetupDialog::run() { return services_.mainFrame->RunDialog(dialog_, services_.mainFrame); }

void SetupDialog::open() {
  const std::string path = configuration_.rememberedFile(coreGetDefaultPath().append(kDefaultFile));
  file_.setText(path == kNoFile || coreFileExist(path) == 0 ? std::string(kNoFile) : path);
  showLinetypesAndPens();
  showWidths();
}

void SetupDialog::showLinetypesAndPens() {
  for (size_t i = 0; i < styles_.size(); ++i) {
    const LineStyleRow& row = lineStyleRows()[i];
    styles_[i].linetype.SetCurSel(offeredInt(configuration_, key(row, "LT"), row.offeredLinetype) - 1);
    styles_[i].pen.SetPen(offeredInt(configuration_, key(row, "Pen"), row.offeredPen));
  }
}

void SetupDialog::showWidths() {
  for (size_t i = 0; i < styles_.size(); ++i) {
    const LineStyleRow& row = lineStyleRows()[i];
    styles_[i].width.SetValue(offeredDouble(configuration_, key(row, "LW"), row.offeredWidth));
  }
  threadGap_.SetValue(offeredDouble(configuration_, std::string(kThreadGapKey), 0.0));
}

void SetupDialog::browse() {
  const std::string initial = file_.text() == kNoFile ? "" : file_.text();
  std::string path;
  if (coreChooseFile(&dialog_, true, "Mechanical Specs (*.ini)|*.ini||", "txt", initial, path) == 0) { return; }
  if (coreFileExist(path) != 0) { pickUp(path); }
}

void SetupDialog::pickUp(const std::string& path) {
  configuration_.load(path);
  file_.setText(path);
  if (configuration_.valid()) {
    showLinetypesAndPens();
  } else {
    warn(&dialog_, "This does not appear to be a valid Mechanical Ardenix configuration file!");
  }
}

bool SetupDialog::confirm() {
  const std::string path = file_.text();
  if (path == kNoFile || coreFileExist(path) == 0 || !configuration_.load(path)) {
    ErrorMessage("You must specify a valid Mechanical Ardenix configuration filename!", &dialog_);
    return false;
  }
  configuration_.rememberFile(path);
  writeStyles();
  return true;
}

void SetupDialog::writeStyles() {
  TINIFile& file = configuration_.store().file();
  for (size_t i = 0; i < styles_.size(); ++i) {
    const LineStyleRow& row = lineStyleRows()[i];
    file.WriteInt(kSetupSection, key(row, "LT"), styles_[i].linetype.GetCurSel() + 1);
    file.WriteInt(kSetupSection, key(row, "Pen"), styles_[i].pen.GetPen());
    file.WriteDouble(kSetupSection, key(row, "LW"), styles_[i].width.GetValue(), 2);
  }
  writeThreadGap(file);
  configuration_.store().flush();
}

// A file that names no gap is left without one where none is wanted.
void SetupDialog::writeThreadGap(TINIFile& file) const {
  const double gap = threadGap_.GetValue();
  const bool named = !file.ReadString(kSetupSection, kThreadGapKey, "").empty();
  if (gap > 0.0 || named) { file.WriteDouble(kSetupSection, kThreadGapKey, gap, 2); }
}

}  // namespace ardenix::mech
