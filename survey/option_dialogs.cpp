#include "survey/option_dialogs.h"

#include "frame/host/core_services.h"
#include "survey/job_options.h"
#include "survey/option_fields.h"
#include "survey/settings_keys.h"

namespace ardenix::survey {

namespace {

constexpr int kOkRow = 5;

// What the three dialogs share: a file, closing buttons, help.
class OptionDialog {
 public:
  OptionDialog(std::string title, std::string_view topic, TINIFile& file, const Services& services)
      : services_(services), file_(file), dialog_(std::move(title)) {
    equip(dialog_, services_, helpTopic(topic));
  }
  OptionDialog(const OptionDialog&) = delete;
  OptionDialog& operator=(const OptionDialog&) = delete;
  virtual ~OptionDialog() = default;

  bool run(CWnd* owner) {
    addOkCancel(dialog_, kOkRow);
    dialog_.onOpen = [this] { load(file_); };
    dialog_.onOk = [this] {
      if (!valid()) { return false; }
      save(file_);
      return true;
    };
    return services_.mainFrame->RunDialog(dialog_, owner);
  }

 protected:
  dialog::Dialog& dialog() { return dialog_; }

 private:
  virtual void load(const TINIFile& file) = 0;
  // Whether what is shown can be kept; says so where it cannot.
  virtual bool valid() { return true; }
  virtual void save(TINIFile& file) = 0;

  const Services& services_;
  TINIFile& file_;
  dialog::Dialog dialog_;
};

// ---- Diagram ----------------------------------------------------------------------------------------------------

class DiagramOptions : public OptionDialog {
 public:
  DiagramOptions(TINIFile& file, const Services& services)
      : OptionDialog("Diagram options", "Survey setup", file, services) {
    addClipping();
    addFields();
    addFlags();
  }

 private:
  enum Clipping { kByOffset, kByFactor };

  void addClipping() {
    const int group = dialog().addGroup({.caption = "Snip surrounding data", .place = {.columnSpan = 2}});
    clipping_ = addRadio(dialog(), {.group = group, .place = {.rowSpan = 2}, .name = "Snip surrounding data"},
                         {{"Offset to a bounding box", "Clip to a rectangle round the figure"},
                          {"Multiplication factor to a polygon ", "Clip to the figure, scaled about its centre"}});
    const dialog::Setting offset{.toolTip = "Distance of the rectangle from the figure, in millimetres on paper",
                                 .group = group,
                                 .place = {.column = 1},
                                 .name = "Offset"};
    offset_ = addInteger(dialog(), offset, static_cast<int>(option::kOffset.minimum),
                         static_cast<int>(option::kOffset.maximum));
    const dialog::Setting factor{.toolTip = "How many times as far from the centre the clipping polygon lies, above 1",
                                 .group = group,
                                 .place = {.row = 1, .column = 1},
                                 .name = "PolySnipFactor"};
    factor_ = addFloat(dialog(), factor, 0.0, option::kPolySnipFactor.maximum, "%.3f");
    isolated_ = FlagField(dialog(), option::kDelLines,
                          {.caption = "Delete isolated lines.",
                           .toolTip = "Leave out lines that do not touch the figure",
                           .group = group,
                           .place = {.row = 2, .columnSpan = 2}});
    clipping_.onEdit([this] { enableChosen(); });
  }

  void addFields() {
    const int group = dialog().addGroup({.place = {.row = 1, .column = 1}});
    lineType_ = addLineType(dialog(), {.caption = "Offshoot linetype",
                                       .toolTip = "Line type in which lines outside the figure are marked",
                                       .group = group});
    layer_ = LayerField(dialog(), option::kDiagramLayer,
                        {.caption = "Layer Name",
                         .toolTip = "Layer on which the texts of the diagram are drawn",
                         .group = group,
                         .place = {.row = 1}});
    corner_ = DiameterField(dialog(), option::kCornerDiam,
                            {.caption = "Corner point diameter (mm)",
                             .toolTip = "Diameter of the beacon circles of the outside figure; 0 draws none",
                             .group = group,
                             .place = {.row = 2}});
  }

  void addFlags() {
    const int group = dialog().addGroup({.place = {.row = 2, .columnSpan = 2}});
    plusSign_ =
        FlagField(dialog(), option::kPlusSign, {.caption = "Plus sign for positive coordinates", .group = group});
    servNotes_ =
        FlagField(dialog(), option::kServNotes, {.caption = "Servitude notes", .group = group, .place = {.row = 1}});
    addNotes_ =
        FlagField(dialog(), option::kAddNotes, {.caption = "Additional notes", .group = group, .place = {.row = 2}});
  }

  void enableChosen() {
    offset_.enable(clipping_.chosen() == kByOffset);
    factor_.enable(clipping_.chosen() == kByFactor);
  }

  void load(const TINIFile& file) override {
    clipping_.choose(offered(file, option::kUseOffset) != 0.0 ? kByOffset : kByFactor);
    offset_.SetValue(static_cast<int>(offered(file, option::kOffset)));
    factor_.SetValue(offered(file, option::kPolySnipFactor));
    lineType_.SetCurSel(static_cast<int>(offered(file, option::kLineType)) - 1);
    layer_.load(file);
    corner_.load(file);
    numbers_.load(file);
    for (const FlagField* flag : {&isolated_, &plusSign_, &servNotes_, &addNotes_}) { flag->load(file); }
    enableChosen();
  }

  bool valid() override {
    if (factor_.GetValue() > 1.0) { return true; }
    coreMessageBox(&dialog(), "Error: Multiplication factor must be greater than 1.", "Factor", BoxIcon::kError,
                   BoxButtons::kOk);
    factor_.focus();
    return false;
  }

  void save(TINIFile& file) override {
    writeInteger(file, option::kUseOffset, clipping_.chosen() == kByOffset ? 1 : 0);
    writeInteger(file, option::kOffset, offset_.GetValue());
    writeMeasure(file, option::kPolySnipFactor, factor_.GetValue());
    writeInteger(file, option::kLineType, lineType_.GetCurSel() + 1);
    layer_.save(file);
    corner_.save(file);
    numbers_.save(file);
    for (const FlagField* flag : {&isolated_, &plusSign_, &servNotes_, &addNotes_}) { flag->save(file); }
  }

  NumberFields numbers_{dialog(), {.row = 1}};
  dialog::RadioHandle clipping_;
  CIntEdit offset_;
  CFloatEdit factor_;
  FlagField isolated_;
  CLineTypeCombo lineType_;
  LayerField layer_;
  DiameterField corner_;
  FlagField plusSign_;
  FlagField servNotes_;
  FlagField addNotes_;
};

// ---- General plan -----------------------------------------------------------------------------------------------

class GeneralPlanOptions : public OptionDialog {
 public:
  GeneralPlanOptions(TINIFile& file, const Services& services)
      : OptionDialog("General Plan Options", "General Plan Options", file, services) {
    const int group = dialog().addGroup({.place = {.column = 1}});
    block_ = DiameterField(dialog(), option::kBlockDiam,
                           {.caption = "Block corner diameter (mm)",
                            .toolTip = "Diameter of the beacon circles of block corners; 0 draws none",
                            .group = group});
    corner_ = DiameterField(dialog(), option::kCornerDiam,
                            {.caption = "Corner point diameter (mm)",
                             .toolTip = "Diameter of the beacon circles of the outside figure; 0 draws none",
                             .group = group,
                             .place = {.row = 1}});
    dimensions_ = addDropDown(
        dialog(),
        {.caption = "Dimensions", .toolTip = "What a survey dimension draws", .group = group, .place = {.row = 2}},
        {"Bearing + Distance", "Distance Only", "Bearing Only"});
    const int flags = dialog().addGroup({.place = {.row = 1, .columnSpan = 2}});
    plusSign_ =
        FlagField(dialog(), option::kPlusSign, {.caption = "Plus sign for positive coordinates", .group = flags});
    separate_ = FlagField(dialog(), option::kMultiline,
                          {.caption = "Separate text for bearing + distance",
                           .toolTip = "Two texts instead of one of two lines",
                           .group = flags,
                           .place = {.row = 1}});
  }

 private:
  void load(const TINIFile& file) override {
    block_.load(file);
    corner_.load(file);
    dimensions_.select(static_cast<int>(offered(file, option::kDimSetting)));
    numbers_.load(file);
    plusSign_.load(file);
    separate_.load(file);
  }

  void save(TINIFile& file) override {
    block_.save(file);
    corner_.save(file);
    if (dimensions_.selected() >= 0) { writeMeasure(file, option::kDimSetting, dimensions_.selected()); }
    numbers_.save(file);
    plusSign_.save(file);
    separate_.save(file);
  }

  NumberFields numbers_{dialog(), {}};
  DiameterField block_;
  DiameterField corner_;
  dialog::DropDownHandle dimensions_;
  FlagField plusSign_;
  FlagField separate_;
};

// ---- Sectional plan ---------------------------------------------------------------------------------------------

class SectionalOptions : public OptionDialog {
 public:
  SectionalOptions(TINIFile& file, const Services& services)
      : OptionDialog("Sectional Title Options", "Sectional Plans options", file, services) {
    const int group = dialog().addGroup({.place = {.column = 1}});
    pen_ = addPen(dialog(), {.caption = "Temporary colour while tracing figure",
                             .toolTip = "Pen of the rubber band while a figure is traced",
                             .group = group});
    const auto layer = [&](const LayerOption& row, std::string caption, std::string toolTip, int at) {
      return LayerField(
          dialog(), row,
          {.caption = std::move(caption), .toolTip = std::move(toolTip), .group = group, .place = {.row = at}});
    };
    layers_ = {layer(option::kFigureLayer, "Layer for figures", "Layer of the line work of figures", 1),
               layer(option::kTextLayer, "Layer for text", "Layer of texts outside the frame", 2),
               layer(option::kFrameLayer, "Layer for frame data", "Layer of what stands in the frame", 3)};
  }

 private:
  void load(const TINIFile& file) override {
    pen_.SetPen(static_cast<int>(offered(file, option::kTracePen)));
    for (const LayerField& layer : layers_) { layer.load(file); }
    numbers_.load(file);
  }

  void save(TINIFile& file) override {
    writeInteger(file, option::kTracePen, pen_.GetPen());
    for (const LayerField& layer : layers_) { layer.save(file); }
    numbers_.save(file);
  }

  NumberFields numbers_{dialog(), {}};
  CColourButton pen_;
  std::array<LayerField, 3> layers_;
};

}  // namespace

bool runOptions(SurveyMode mode, TINIFile& file, const Services& services, CWnd* owner) {
  switch (mode) {
    case SurveyMode::kDiagram: return DiagramOptions(file, services).run(owner);
    case SurveyMode::kGeneralPlan: return GeneralPlanOptions(file, services).run(owner);
    case SurveyMode::kSectionalPlan: return SectionalOptions(file, services).run(owner);
  }
  return false;
}

void copyOptions(const TINIFile& from, TINIFile& to) {
  for (const std::string_view key : kOptionKeys) {
    const auto value = storedValue(from, kOptionSection, key);
    if (value && value != storedValue(to, kOptionSection, key)) { to.WriteString(kOptionSection, key, *value); }
  }
}

}  // namespace ardenix::survey
