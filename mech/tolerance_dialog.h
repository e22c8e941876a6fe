#pragma once

#include <array>
#include <span>
#include <vector>

#include "frame/host/dialog.h"
#include "frame/services.h"
#include "mech/definition_store.h"
#include "mech/tolerance_frame.h"

namespace ardenix::mech {

struct SymbolRow;

// The dialog in which a tolerance frame is put together. It starts from the frame given, and OK changes that.
class ToleranceDialog {
 public:
  ToleranceDialog(const Services& services, const DefinitionStore& store, ToleranceFrame& frame);
  // True when the user closed it with OK.
  bool run();

 private:
  struct CellControls {
    dialog::PictureListHandle diameter;  // of tolerances
    dialog::TextHandle value;
    dialog::PictureListHandle modifier;
  };

  void describeSymbol();
  void describeCells();
  void describeRows();
  dialog::PictureListHandle addSymbols(std::span<const SymbolRow> rows, dialog::Setting setting);
  dialog::TextHandle addValue(int limit, dialog::Setting setting);
  void show(const ToleranceFrame& frame) const;
  [[nodiscard]] ToleranceFrame shown() const;
  bool refuse(const dialog::Handle& field, std::string_view message);
  bool confirm();

  const Services& services_;
  ToleranceFrame& frame_;
  dialog::Dialog dialog_{"Mechanical Ardenix - Tolerance Annotation"};
  dialog::PictureListHandle characteristic_;
  std::array<CellControls, 5> cells_;
  dialog::CheckHandle projected_;
  dialog::TextHandle height_;
  dialog::TextHandle identifier_;
  std::vector<dialog::TextHandle> texts_;  // all of them
};

}  // namespace ardenix::mech
