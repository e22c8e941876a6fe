#include "mech/annotation_setup.h"

#include "frame/host/core_services.h"
#include "frame/messages.h"
#include "frame/records.h"
#include "mech/annotation_commands.h"
#include "mech/annotation_style.h"
#include "mech/tolerance_leader.h"

namespace ardenix::mech {

namespace {

constexpr std::string_view kSymbolsKey = "WeldSymbols";
constexpr int kSymbolPathLimit = 259;
constexpr double kMostPlain = 1000.0;
constexpr double kMostWeldScale = 10000.0;

// What the dialog offers where the configuration names none; the drawings fall back to names of their own.
constexpr std::string_view kOfferedWeldLayer = "WELDS";
constexpr std::string_view kOfferedToleranceLayer = "TOLERANCE";
constexpr std::string_view kOfferedFinishLayer = "SURFACE_FINISH";

std::string keyOf(std::string_view word, std::string_view what) { return std::string(word).append(what); }

std::string layerIn(const dialog::TextHandle& edit) {
  std::string name = edit.text();
  coreTrimStr(name);
  return name;
}

}  // namespace

// ---- Description --------------------------------------------------------------------------------------------

AnnotationSetupDialog::AnnotationSetupDialog(const Services& services, Configuration& configuration)
    : services_(services), configuration_(configuration), settings_(dialog_.addGroup({})) {
  equip(dialog_, services_, helpTopic("Annotation Setup"));
  describeWelds();
  describeTolerances();
  describeFinishes();
  describePreview();
  addOkCancel(dialog_, 1);
  dialog_.onOpen = [this] { open(); };
  dialog_.onOk = [this] { return confirm(); };
}

int AnnotationSetupDialog::addBox(std::string_view caption, int row) {
  return dialog_.addGroup({.caption = std::string(caption), .parent = settings_, .place = {.row = row}});
}

void AnnotationSetupDialog::describeFile(int group) {
  const int line = dialog_.addGroup({.parent = group});
  symbols_ = addText(
      dialog_,
      {.caption = "Welds Symbol file:", .toolTip = "The path to the file holding the weld symbols", .group = line},
      kSymbolPathLimit);
  addButton(dialog_,
            {.caption = "...", .toolTip = "Browse for a weld symbol file", .group = line, .place = {.column = 1}})
      .onPress([this] { browse(); });
}

void AnnotationSetupDialog::describeWelds() {
  const PlainTexts texts{.layer = "Weld annotation layer name:",
                         .layerTip = "Specify the name of the layer that weld annotations will be drawn on",
                         .scaleTip = "Scale of the weld annotation symbols ",
                         .mostScale = kMostWeldScale,
                         .textTip = "Size of the text used in weld annotations"};
  const int box = addBox("Weld Annotation", 0);
  describeFile(box);
  const int fields = dialog_.addGroup({.parent = box, .place = {.row = 1}});
  welds_ = describePlain(texts, fields);
  const auto colour = [&](const char* name, int row) {
    return addPen(dialog_, {.caption = "Colour", .group = fields, .place = {.row = row, .column = 1}, .name = name});
  };
  colour1_ = colour("Colour 1", 1);
  colour2_ = colour("Colour 2", 2);
  const int head = dialog_.addGroup({.caption = "Arrow Head", .parent = box, .place = {.row = 2}});
  const auto size = [&](const char* caption, const char* tip, int column) {
    return addFloat(dialog_, {.caption = caption, .toolTip = tip, .group = head, .place = {.column = column}}, 0.0,
                    kMostPlain, "%.1f");
  };
  headLength_ = size("Length", "Length of the arrow head in the weld annotation", 0);
  headWidth_ = size("Width", "Width of the arrow head in the weld annotation", 1);
}

void AnnotationSetupDialog::describeTolerances() {
  const int box = addBox("Tolerance Annotation", 1);
  tolerances_ = describePlain({.layer = "Tolerance annotation layer name:",
                               .layerTip = "Specify the name of the layer that tolerance annotations will be drawn on",
                               .scaleTip = "Scale of the tolerance annotation symbols",
                               .mostScale = kMostPlain,
                               .textTip = "Size of the text used in tolerance annotations"},
                              box);
  const auto option = [&](const char* caption, const char* tip, int row) {
    return addCheck(dialog_, {.caption = caption, .toolTip = tip, .group = box, .place = {.row = row, .column = 1}});
  };
  leaders_ = option("Ask for leaders",
                    "After a frame or a datum, ask for the feature that it belongs to and draw the leader", 1);
  stacks_ = option("Stack frames", "Put a frame exactly below another when its point lies near there", 2);
}

void AnnotationSetupDialog::describeFinishes() {
  finishes_ =
      describePlain({.layer = "Surface finish layer name:",
                     .layerTip = "Specify the name of the layer that surface finish annotations will be drawn on",
                     .scaleTip = "Scale of the surface finish symbols",
                     .mostScale = kMostPlain,
                     .textTip = "Size of the text used in surface finish annotations"},
                    addBox("Surface Finish Annotation", 2));
}

void AnnotationSetupDialog::describePreview() {
  constexpr int kWidth = 220;
  constexpr int kHeight = 260;
  const int group = dialog_.addGroup({.caption = "Preview", .place = {.column = 1}});
  dialog::addControl(dialog_,
                     dialog::Preview{kWidth, kHeight, [this](CCadWindow& view) { sketchAnnotations(view, samples()); }},
                     {.group = group});
}

AnnotationSetupDialog::PlainControls AnnotationSetupDialog::describePlain(const PlainTexts& texts, int group) {
  const auto setting = [&](std::string_view caption, std::string_view tip, int row) {
    return dialog::Setting{
        .caption = std::string(caption), .toolTip = std::string(tip), .group = group, .place = {.row = row}};
  };
  return {.layer = addText(dialog_, setting(texts.layer, texts.layerTip, 0)),
          .scale = addFloat(dialog_, setting("Symbol scale factor", texts.scaleTip, 1), 0.0, texts.mostScale, "%.3f"),
          .textSize = addFloat(dialog_, setting("Text size (points)", texts.textTip, 2), 0.0, kMostPlain, "%.1f")};
}

// ---- Reading ------------------------------------------------------------------------------------------------

void AnnotationSetupDialog::run(CWnd* owner) {
  if (configuration_.loaded()) {
    services_.mainFrame->RunDialog(dialog_, owner);
    return;
  }
  ErrorMessage(
      "You cannot access Annotation Setup because your Mechanical Ardenix configuration file has not been correctly "
      "specified!",
      owner);
}

void AnnotationSetupDialog::open() {
  if (!configuration_.valid()) {
    warn(&dialog_,
         "The specified Mechanical Ardenix configuration file seems to be invalid!\n"
         "Please check that the path to the configuration file is specified correctly in the Mechanical Ardenix Setup "
         "dialog.");
  }
  const TINIFile& file = configuration_.store().file();
  symbols_.setText(file.ReadString(kAnnotationSection, kSymbolsKey, shippedSymbolFile(kWeldAnnotation.symbolFile)));
  showWelds(file);
  showPlain(file, tolerances_, kToleranceAnnotation.word, kOfferedToleranceLayer);
  showPlain(file, finishes_, kSurfaceFinishAnnotation.word, kOfferedFinishLayer);
  for (const auto& [check, key] : options()) {
    check.setChecked(configuration_.store().extraWanted(kAnnotationSection, key));
  }
}

void AnnotationSetupDialog::showWelds(const TINIFile& file) const {
  const std::string settings = file.ReadString(kAnnotationSection, "WeldSettings", "");
  const auto number = [&](int field, double fallback) {
    return coreGetFieldDouble(settings, fallback, field, kFieldSeparator);
  };
  welds_.layer.setText(file.ReadString(kAnnotationSection, "WeldLayer", kOfferedWeldLayer));
  welds_.scale.SetValue(number(1, 1.0));
  colour1_.SetPen(coreGetFieldInt(settings, 1, 2, kFieldSeparator));
  welds_.textSize.SetValue(number(3, 10.0));
  colour2_.SetPen(coreGetFieldInt(settings, 1, 4, kFieldSeparator));
  headLength_.SetValue(number(5, 3.0));
  headWidth_.SetValue(number(6, 1.5));
}

void AnnotationSetupDialog::showPlain(const TINIFile& file, const PlainControls& controls, std::string_view word,
                                      std::string_view layer) {
  const std::string settings = file.ReadString(kAnnotationSection, keyOf(word, "Settings"), "");
  controls.layer.setText(file.ReadString(kAnnotationSection, keyOf(word, "Layer"), layer));
  controls.scale.SetValue(coreGetFieldDouble(settings, 1.0, 1, kFieldSeparator));
  controls.textSize.SetValue(coreGetFieldDouble(settings, 10.0, 2, kFieldSeparator));
}

void AnnotationSetupDialog::browse() {
  const std::string initial = symbols_.text() == kNoFile ? "" : symbols_.text();
  std::string path;
  const int chosen = coreChooseFile(&dialog_, true, "Weld Symbol file (*.drg)|*.drg||", "drg", initial, path);
  if (chosen != 0 && coreFileExist(path) != 0) { symbols_.setText(path); }
}

// ---- Writing ------------------------------------------------------------------------------------------------

std::string AnnotationSetupDialog::weldSettings() const {
  return numberText::format("%.3f,%d,%.1f,%d,%.1f,%.1f", welds_.scale.GetValue(), colour1_.GetPen(),
                            welds_.textSize.GetValue(), colour2_.GetPen(), headLength_.GetValue(),
                            headWidth_.GetValue());
}

// What the dialog's fields make of the annotations; the fonts are the file's.
AnnotationSamples AnnotationSetupDialog::samples() const {
  constexpr double kTenths = 10.0;
  const DefinitionStore& store = configuration_.store();
  const auto style = [&store](const AnnotationKind& kind, const PlainControls& controls) {
    AnnotationStyle shown = annotationStyle(store, kind);
    shown.scale = controls.scale.GetValue();
    shown.textSize = controls.textSize.GetValue();
    return shown;
  };
  AnnotationSamples samples{
      .weld = style(kWeldAnnotation, welds_),
      .weldHead = {.length = headLength_.GetValue() * kTenths, .width = headWidth_.GetValue() * kTenths},
      .finish = style(kSurfaceFinishAnnotation, finishes_),
      .tolerance = style(kToleranceAnnotation, tolerances_)};
  samples.weld.symbols = symbolPath(store, symbols_.text());
  return samples;
}

AnnotationSetupDialog::Options AnnotationSetupDialog::options() const {
  return {{{leaders_, kLeaderKey}, {stacks_, kStackKey}}};
}

bool AnnotationSetupDialog::confirm() {
  const auto plain = [](const PlainControls& controls) {
    return numberText::format("%.3f,%.1f", controls.scale.GetValue(), controls.textSize.GetValue());
  };
  const std::pair<std::string_view, std::string> values[] = {
      {kSymbolsKey, symbols_.text()},
      {"WeldLayer", layerIn(welds_.layer)},
      {"ToleranceLayer", layerIn(tolerances_.layer)},
      {"SurfaceFinishLayer", layerIn(finishes_.layer)},
      {"WeldSettings", weldSettings()},
      {"ToleranceSettings", plain(tolerances_)},
      {"SurfaceFinishSettings", plain(finishes_)},
  };
  TINIFile& file = configuration_.store().file();
  for (const auto& [key, value] : values) { file.WriteString(kAnnotationSection, key, value); }
  for (const auto& [check, key] : options()) {
    configuration_.store().setExtra(kAnnotationSection, key, check.checked());
  }
  configuration_.store().flush();
  return true;
}

void runAnnotationSetup(const Services& services, Configuration& configuration, CWnd* owner) {
  AnnotationSetupDialog(services, configuration).run(owner);
}

void setUpAnnotations(MechToolset& toolset) {
  runAnnotationSetup(toolset.services(), toolset.configuration(), toolset.services().mainFrame);
}

}  // namespace ardenix::mech
