#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "arch/spec_store.h"
#include "frame/drafting/line_style.h"
#include "frame/host/dialog.h"

// What the setup dialogs of drawing commands have in common.
namespace ardenix::arch {

// The range of their number fields.
inline constexpr double kLeastNumber = -99999999.0;
inline constexpr double kLargestNumber = 999999999.0;

// A number of a command's settings: its field, and how it is shown.
struct NumberRow {
  std::string_view caption;
  std::string_view toolTip;
  std::string_view format = "%.1f";
};
CFloatEdit addNumber(dialog::Dialog& dialog, const NumberRow& row, int group, dialog::Place place);

// A pen and a line type side by side.
class StyleFields {
 public:
  // What both style ("Roof"), which names them where a dialog has several; empty where it has one.
  void describe(dialog::Dialog& dialog, std::string_view what, int group, dialog::Place place);
  void show(const LineStyle& style) const;
  void take(LineStyle& style) const;

 private:
  CColourButton pen_;
  CLineTypeCombo linetype_;
};

// The layers onto which a command draws, one list each: those of the drawing, and the one set.
class LayerFields {
 public:
  struct Row {
    std::string caption;
    std::string key;  // of its setting
    std::string toolTip{};
  };

  LayerFields(ArchSpecStore& store, std::string_view section) : store_(store), section_(section) {}
  LayerFields(const LayerFields&) = delete;
  LayerFields& operator=(const LayerFields&) = delete;

  // In a group of their own within another, which bears their heading where there are several.
  void describe(dialog::Dialog& dialog, std::vector<Row> rows, dialog::Place place, int parent = 0);
  // Lists the layers and shows those stored.
  void show() const;
  // Whether parts can lie on the layers shown; else says which name is kept for parts in the making.
  [[nodiscard]] bool mayBeSaved() const;
  // The names as layers bear them, one a row.
  void take(std::span<std::string> names) const;
  // The same, into the store.
  void write() const;

 private:
  struct Field {
    Row row;
    dialog::DropDownHandle list;
  };
  [[nodiscard]] static std::string nameIn(const Field& field);

  ArchSpecStore& store_;
  std::string_view section_;
  dialog::Dialog* dialog_ = nullptr;
  std::vector<Field> fields_;
};

}  // namespace ardenix::arch
