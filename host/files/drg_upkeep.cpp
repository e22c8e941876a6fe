#include "host/files/drg_upkeep.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "host/files/drg_filler.h"
#include "host/files/drg_writer.h"

namespace brevan {

namespace fs = std::filesystem;

namespace {

// Takes the rows of a primitive's number out of the tables of every kind: its kind may have changed.
class PrimitiveRemover {
 public:
  explicit PrimitiveRemover(DrgDatabase& database) {
    forEachDrgPrimitiveTable([&]<class Kind>() {
      deletions_.push_back(std::make_unique<DrgStatement>(
          database, "DELETE FROM " + std::string(DrgTable<DrgPrimitive<Kind>>::kName) + " WHERE symbol=0 AND id=?"));
    });
  }
  void remove(PrimitiveId id) {
    for (const auto& deletion : deletions_) {
      deletion->bind(1, static_cast<long long>(id));
      deletion->step();
    }
  }

 private:
  std::vector<std::unique_ptr<DrgStatement>> deletions_;
};

void writePrimitives(DrgDatabase& file, const Drawing& drawing, std::vector<PrimitiveId> ids) {
  std::sort(ids.begin(), ids.end());
  ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
  PrimitiveRemover removed(file);
  PrimitiveFiller added(file);
  for (const PrimitiveId id : ids) {
    removed.remove(id);
    const Primitive* primitive = drawing.find(id);
    if (primitive != nullptr) { added.add(0, id, *primitive); }
  }
}

void writeGroups(DrgDatabase& file, const Drawing& drawing, const std::vector<GroupId>& ids) {
  file.execute("DELETE FROM part_groups WHERE id>" + std::to_string(drawing.lastGroup()));
  TableFiller<DrgGroup> groups(file);
  for (const GroupId id : ids) {
    if (id <= drawing.lastGroup()) { fillGroup(groups, drawing.group(id)); }
  }
}

void writeSymbols(DrgDatabase& file, const Drawing& drawing) {
  file.execute("DELETE FROM symbols");
  forEachDrgPrimitiveTable([&]<class Kind>() {
    file.execute("DELETE FROM " + std::string(DrgTable<DrgPrimitive<Kind>>::kName) + " WHERE symbol>0");
  });
  fillSymbols(file, drawing);
}

// Files from before there were hatches lack a table for them.
void addMissingTables(DrgDatabase& file) {
  forEachDrgPrimitiveTable([&]<class Kind>() {
    DrgStatement there(file, "SELECT 1 FROM sqlite_schema WHERE name='" + std::string(DrgGeometry<Kind>::kName) + "'");
    if (!there.step()) { file.execute(drgDefinition<DrgPrimitive<Kind>>()); }
  });
}

void writeChanges(DrgDatabase& file, const Drawing& drawing, const TouchedRows& touched) {
  file.execute("BEGIN IMMEDIATE; DELETE FROM parameters; DELETE FROM sheet; DELETE FROM layers");
  fillHead(file, drawing);
  writeGroups(file, drawing, touched.groups);
  if (touched.symbols) { writeSymbols(file, drawing); }
  writePrimitives(file, drawing, touched.primitives);
  file.execute("COMMIT");
}

}  // namespace

DrgUpkeep::DrgUpkeep(NewPath newPath, Drawing& drawing, std::string base)
    : newPath_(std::move(newPath)), base_(std::move(base)) {
  if (isStrewn(drawing)) { base_.clear(); }  // its rows have other numbers
  if (base_.empty()) { return; }
  baseStamp_ = stampOf(base_);
  static_cast<void>(drawing.takeTouched());
}

DrgUpkeep::~DrgUpkeep() = default;

std::unique_ptr<DrgDatabase> DrgUpkeep::copyOfBase() {
  if (base_.empty() || !baseStamp_.exists || !(stampOf(base_) == baseStamp_)) { return nullptr; }
  std::string path = newPath_();
  const std::string copy = path + ".new";
  std::error_code failed;
  if (!fs::copy_file(base_, copy, failed)) { return nullptr; }
  fs::permissions(copy, fs::perms::owner_read | fs::perms::owner_write, failed);
  if (!failed) { fs::rename(copy, path, failed); }
  if (failed) { return nullptr; }
  path_ = std::move(path);
  std::unique_ptr<DrgDatabase> file = DrgDatabase::onDisk(path_);
  addMissingTables(*file);
  return file;
}

std::unique_ptr<DrgDatabase> DrgUpkeep::writtenAnew(const Drawing& drawing) {
  std::string path = newPath_();
  saveWhole(path, drawingDrg(drawing));
  remove(path_);
  path_ = std::move(path);
  return isStrewn(drawing) ? nullptr : DrgDatabase::onDisk(path_);  // its rows have other numbers
}

void DrgUpkeep::keep(Drawing& drawing) {
  if (kept_ == drawing.revision()) { return; }
  const TouchedRows touched = drawing.takeTouched();
  std::unique_ptr<DrgDatabase> file = std::move(file_);  // only what succeeds stays in step
  kept_.reset();
  const bool inPlace = !touched.all && !isStrewn(drawing);
  if (inPlace && file == nullptr) { file = copyOfBase(); }
  base_.clear();
  if (inPlace && file != nullptr) {
    writeChanges(*file, drawing, touched);
  } else {
    file.reset();
    file = writtenAnew(drawing);
  }
  file_ = std::move(file);
  kept_ = drawing.revision();
}

void DrgUpkeep::settle(const std::string& path) { static_cast<void>(DrgDatabase::onDisk(path)); }

void DrgUpkeep::remove(const std::string& path) {
  std::error_code ignored;
  for (const char* ending : {"", "-journal", ".new"}) { fs::remove(path + ending, ignored); }
}

}  // namespace brevan
