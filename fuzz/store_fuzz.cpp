#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "arch/spec_store.h"
#include "frame/host/core_services.h"
#include "fuzz/byte_choices.h"
#include "fuzz/laws.h"
#include "fuzz/scratch_folder.h"
#include "host/core/file_services.h"
#include "host/window/host.h"
#include "host/window/silent_user.h"
#include "mech/definition_kinds.h"
#include "mech/definition_store.h"
#include "survey/control_store.h"

// The first byte chooses a kind of library, the second says how many changes follow, of three bytes each: what to do,
// in which list, at which place. The rest is the library. The records stand as in a plain list that was changed alike,
// in the store and in the file that it leaves.
namespace {

using namespace fuzzing;
using namespace ardenix;
using namespace ardenix::arch;
using namespace ardenix::mech;
using Records = std::map<std::string, std::vector<std::string>, std::less<>>;

constexpr std::string_view kNew[] = {"New,1,2,3", "x", ",,,", "=;[x]", "A\x80,1.5", " blank ,1"};

struct Change {
  uint8_t what;
  uint8_t list;
  uint8_t place;
};

std::string nameOf(std::string_view record) { return std::string(record.substr(0, record.find(','))); }

std::vector<std::string> namesOf(const std::vector<std::string>& records) {
  std::vector<std::string> names;
  for (const std::string& record : records) { names.push_back(nameOf(record)); }
  return names;
}

// As a value comes back from a file.
std::string stored(std::string_view record) {
  std::string text(record);
  coreTrimStr(text);
  return text;
}

constexpr int kMostChanges = 8;

// What stands behind the first gap of a list, in order. It is not listed, but it must not be lost either.
constexpr int kLookedAtBehind = 32;

template <class Record>
std::vector<std::string> behindGap(const Record& record, size_t count, int numbers) {
  std::vector<std::string> behind;
  for (int n = 1; n <= numbers; ++n) {
    if (auto text = record(static_cast<int>(count) + n)) { behind.push_back(*text); }
  }
  return behind;
}

bool startsWith(const std::vector<std::string>& list, const std::vector<std::string>& start) {
  return list.size() >= start.size() && std::equal(start.begin(), start.end(), list.begin());
}

bool startWith(const Records& lists, const Records& starts) {
  return std::ranges::all_of(
      starts, [&lists](const auto& start) { return startsWith(lists.find(start.first)->second, start.second); });
}

// ---- Mechanical definitions ------------------------------------------------------------------------------

Records recordsOf(const DefinitionStore& store) {
  Records records;
  for (const DefinitionKind& kind : definitionKinds()) {
    auto& list = records[std::string(kind.section)];
    for (int n = 1; n <= store.count(kind.section); ++n) { list.push_back(store.record(kind.section, n).value()); }
    require(startsWith(store.names(kind.section), namesOf(list)));
  }
  return records;
}

Records behindGaps(const DefinitionStore& store, int numbers) {
  Records behind;
  for (const DefinitionKind& kind : definitionKinds()) {
    const auto record = [&store, &kind](int n) { return store.record(kind.section, n); };
    behind[std::string(kind.section)] = behindGap(record, static_cast<size_t>(store.count(kind.section)), numbers);
  }
  return behind;
}

void apply(const Change& change, DefinitionStore& store, Records& records) {
  const DefinitionKind& kind = definitionKinds()[change.list % definitionKinds().size()];
  auto& list = records.find(kind.section)->second;
  const std::string record = stored(kNew[change.place % std::size(kNew)]);
  const size_t place = list.empty() ? 0 : change.place % list.size();
  switch (change.what % 4) {
    case 0:
      store.append(kind.section, record);
      list.push_back(record);
      break;
    case 1:
      store.remove(kind.section, change.place);
      if (change.place < list.size()) { list.erase(list.begin() + change.place); }
      break;
    case 2:
      if (list.empty()) { break; }
      store.put(kind.section, static_cast<int>(place) + 1, record);
      list[place] = record;
      break;
    default:
      store.setCurrent(kind.section, change.place);
      require(store.current(kind.section) == change.place);
      break;
  }
}

void definitions(const std::string& path, const std::vector<Change>& changes) {
  DefinitionStore store(path);
  Records records = recordsOf(store);
  const Records behind = behindGaps(store, kLookedAtBehind);
  for (const Change& change : changes) { apply(change, store, records); }
  store.flush();
  require(recordsOf(store) == records);
  require(startWith(behindGaps(store, kLookedAtBehind + kMostChanges), behind));
  require(startWith(recordsOf(DefinitionStore(path)), records));
}

// ---- Architectural lists ---------------------------------------------------------------------------------

constexpr std::string_view kLists[] = {kWallTypes, kTreads, kRailings, kBuildingStandards};

class SpecLists {
 public:
  SpecLists(const std::string& path, CCadWindow& view) : store_(path, view) {
    for (const std::string_view list : kLists) {
      boxes_[std::string(list)] = dialog::addDropDown(dialog_, {.name = std::string(list)}, {});
      store_.loadNames(box(list), list);
    }
  }
  [[nodiscard]] Records records() const {
    Records records;
    for (const std::string_view section : kLists) {
      auto& list = records[std::string(section)];
      for (int n = 1; n <= store_.count(section); ++n) { list.push_back(store_.readRecord(section, n).value()); }
      require(box(section).items() == namesOf(list));
    }
    return records;
  }
  [[nodiscard]] Records behindGaps(int numbers) const {
    Records behind;
    for (const std::string_view section : kLists) {
      const auto record = [this, section](int n) { return store_.readRecord(section, n); };
      behind[std::string(section)] = behindGap(record, static_cast<size_t>(store_.count(section)), numbers);
    }
    return behind;
  }
  void apply(const Change& change, Records& records) {
    const std::string_view section = kLists[change.list % std::size(kLists)];
    auto& list = records.find(section)->second;
    const std::string record = stored(kNew[change.place % std::size(kNew)]);
    if (change.what % 2 == 0) {
      store_.addRecord(record, box(section), section);
      return list.push_back(record);
    }
    store_.removeRecord(change.place, box(section), section);
    if (change.place < list.size()) { list.erase(list.begin() + change.place); }
  }

 private:
  [[nodiscard]] const dialog::DropDownHandle& box(std::string_view list) const { return boxes_.find(list)->second; }

  dialog::Dialog dialog_{"Lists"};
  std::map<std::string, dialog::DropDownHandle, std::less<>> boxes_;
  ArchSpecStore store_;
};

void specifications(const std::string& path, const std::vector<Change>& changes, CCadWindow& view) {
  SpecLists lists(path, view);
  Records records = lists.records();
  const Records behind = lists.behindGaps(kLookedAtBehind);
  for (const Change& change : changes) { lists.apply(change, records); }
  require(lists.records() == records);
  require(startWith(lists.behindGaps(kLookedAtBehind + kMostChanges), behind));
  require(startWith(SpecLists(path, view).records(), records));
}

// ---- Control points --------------------------------------------------------------------------------------

void controlPoints(const std::string& path, const std::vector<Change>& changes) {
  using namespace survey;
  ControlStore store(path);
  constexpr ControlCategory kCategories[] = {ControlCategory::kTownSurveyMark, ControlCategory::kTrigonometricalBeacon};
  for (const ControlCategory category : kCategories) {
    for (const std::string& key : store.keys(category)) {
      const auto point = store.find(category, key);
      if (point) { require(point->category == category && controlKey(*point).size() <= key.size()); }
    }
  }
  for (const Change& change : changes) {
    ControlPoint point{kCategories[change.list % 2], "P" + std::to_string(change.place % 8), "", change.what / 4.0,
                       -1.25};
    if (change.what % 3 == 0) { point.number = "29" + std::to_string(change.place); }
    store.add(point);
    const auto found = store.find(point.category, controlKey(point));
    require(found && found->y == point.y && found->x == point.x && controlKey(*found) == controlKey(point));
  }
  store.save();
  const ControlStore again(path);
  for (const ControlCategory category : kCategories) { require(again.keys(category) == store.keys(category)); }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const ScratchFolder folder;
  ByteChoices input(data, size);
  const size_t kind = input.below(3);
  std::vector<Change> changes(input.below(kMostChanges));
  for (Change& change : changes) { change = {input.byte(), input.byte(), input.byte()}; }
  const std::string path = folder.write("library.ini", input.rest());
  brevan::SilentUser user;
  brevan::FileServices files(folder.path(), folder.path());
  INI_LIST settings("");
  brevan::Host host({user, files, settings, nullptr, ""});
  try {
    if (kind == 0) { definitions(path, changes); }
    if (kind == 1) { specifications(path, changes, host.window()); }
    if (kind == 2) { controlPoints(path, changes); }
  } catch (const HostFailure&) { return 0; }
  return 0;
}
