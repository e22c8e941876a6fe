#pragma once

#include <array>
#include <memory>
#include <string>

#include "frame/host/dialog.h"
#include "frame/services.h"
#include "survey/control_point.h"
#include "survey/control_store.h"

namespace ardenix::survey {

// The dialog that chooses the two control points of a settings file from a store, and fills the store from listings.
class ControlDialog {
 public:
  // An empty path: no store yet.
  ControlDialog(std::array<ControlPoint, 2>& points, std::string storePath, const Services& services);
  // Whether it was closed with OK: points and store are then changed, the store saved.
  bool run(CWnd* owner);
  // "" while there is none.
  [[nodiscard]] std::string storePath() const { return store_ ? store_->path() : ""; }

 private:
  struct PointControls {
    dialog::DropDownHandle category;
    dialog::DropDownHandle name;
    dialog::TextHandle number;
    CFloatEdit y;
    CFloatEdit x;
  };
  using Reader = std::vector<ListedPoint> (*)(const std::vector<std::string>&);

  void addPoint(size_t index);
  void open();
  void openStore(const std::string& path);
  bool needStore();
  void browse();
  void fillNames(const PointControls& controls);
  void show(const PointControls& controls, const ControlPoint& point);
  void categoryChanged(const PointControls& controls);
  void nameChosen(const PointControls& controls);
  void showJoin();
  void tellDamage(const std::string& key);
  [[nodiscard]] bool isDamaged(const PointControls& controls) const;
  void setName(const PointControls& controls, const std::string& text);
  [[nodiscard]] ControlCategory categoryOf(const PointControls& controls) const;
  [[nodiscard]] ControlPoint pointOf(const PointControls& controls) const;
  void readListing(ControlCategory category);
  bool confirm();

  std::array<ControlPoint, 2>& points_;
  std::string initialPath_;
  const Services& services_;
  dialog::Dialog dialog_{"Control Coordinates"};
  dialog::ReadOnlyHandle storeName_;
  std::array<PointControls, 2> controls_;
  dialog::LabelHandle join_;  // distance and direction between the points
  std::unique_ptr<ControlStore> store_;
};

}  // namespace ardenix::survey
