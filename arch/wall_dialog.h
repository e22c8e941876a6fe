#pragma once

#include <span>
#include <vector>

#include "arch/layer_grid.h"
#include "arch/record_chooser.h"
#include "arch/spec_store.h"
#include "arch/wall_drawer.h"
#include "frame/host/dialog.h"
#include "frame/services.h"

namespace ardenix::arch {

// The Wall Setup dialog: the library of wall types with Add and Delete, which act on the file at once, the
// type shown, and how walls are drawn. OK saves the type shown and the settings.
class WallDialog {
 public:
  WallDialog(const Services& services, ArchSpecStore& store, WallDrawer& drawer);
  bool run();

 private:
  // What internal and external walls show in the place of the thickness.
  struct Layout {
    struct Width {
      WallWidth width;
      CFloatEdit edit;
    };
    int group = 0;
    std::vector<Width> widths;
    LayerGrid grid;
  };
  struct WidthRow {
    WallWidth width;
    std::string_view caption;
    std::string_view toolTip;
  };

  void describeList();
  void describeLayout(Layout& layout, std::span<const WidthRow> widths, std::span<const LayerGridRow> rows);
  void describeDrawing(int column);
  void describeEnds(int column);
  void open();
  void showSettings();
  void showType();
  void chooseType(int number);
  void showLayout();
  void methodChosen();
  void followJustification();
  void showDirection();
  void takeType();
  void takeSettings();
  bool mayBeSaved();
  bool confirm();
  [[nodiscard]] bool internalChosen() const;
  [[nodiscard]] std::string layerName() const;
  [[nodiscard]] const Layout& shownLayout() const { return internalChosen() ? internal_ : external_; }

  const Services& services_;
  ArchSpecStore& store_;
  WallDrawer& drawer_;
  dialog::Dialog dialog_{"Wall Setup"};
  RecordChooser chooser_;
  dialog::DropDownHandle layer_;
  Layout external_;
  Layout internal_;
  dialog::RadioHandle method_;
  dialog::RadioHandle justification_;
  dialog::RadioHandle direction_;
  dialog::PictureHandle clockwise_;
  dialog::PictureHandle anticlockwise_;
  dialog::RadioHandle type_;
  CFloatEdit startAngle_;
  CFloatEdit endAngle_;
  dialog::CheckHandle fillet_;
  dialog::CheckHandle close_;
  dialog::CheckHandle join_;
};

}  // namespace ardenix::arch
