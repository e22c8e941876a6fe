#include "host/files/dxf/read/reader.h"

#include <algorithm>
#include <array>
#include <optional>

#include "host/core/safe_file.h"
#include "host/files/dxf/own_notes.h"
#include "host/files/dxf/read/builder.h"
#include "host/files/dxf/read/entity_reader.h"

namespace brevan {

namespace {

class DxfReader {
 public:
  DxfReader(std::string_view bytes, const std::string& file)
      : scanner_(bytes, messageText(file)),
        record_(scanner_),
        entities_(styles_, report_),
        builder_(styles_, blocks_, report_) {}

  ReadDrawing read() {
    try {
      readSections();
      return {builder_.finish(currentLayer_), report_.text()};
    } catch (const RefusedChange& refused) {
      scanner_.fail(record_.line(), refused.what());
    } catch (const DxfRefusal& failure) { scanner_.fail(record_.line(), failure.what()); }
  }

 private:
  // Sections in the order in which each needs those before it.
  enum Section { kHeader, kTables, kBlocks, kEntities, kObjects, kSections };
  struct SectionRow {
    std::string_view name;
    void (DxfReader::*read)();
  };
  static const std::array<SectionRow, kSections>& sections() {
    static const std::array<SectionRow, kSections> kRows = {{{"HEADER", &DxfReader::readHeader},
                                                             {"TABLES", &DxfReader::readTables},
                                                             {"BLOCKS", &DxfReader::readBlocks},
                                                             {"ENTITIES", &DxfReader::readEntities},
                                                             {"OBJECTS", &DxfReader::readObjects}}};
    return kRows;
  }
  struct Bookmark {
    size_t section = 0;
    DxfTag tag;
    DxfScanner::Place place;
  };

  // Takes the record that starts at tag_; tag_ is then the start of the next. False where there is none.
  bool takeRecord() {
    if (!hasTag_) { return false; }
    hasTag_ = record_.take(tag_);
    return true;
  }

  // The next record of a section; false at its end, which a file cut short lacks.
  bool takeInSection() {
    if (!takeRecord()) { scanner_.fail(record_.line(), "the file ends within a section"); }
    return record_.kind() != "ENDSEC";
  }

  void readSections() {
    do { hasTag_ = scanner_.next(tag_); } while (hasTag_ && tag_.code == 999);
    if (!hasTag_ || tag_.code != 0) { scanner_.fail(1, "the file does not begin as a DXF file"); }
    std::vector<Bookmark> deferred;
    std::array<bool, kSections> seen{};
    while (hasTag_ && trimmed(tag_.value) != "EOF" && takeRecord()) {
      if (record_.kind() != "SECTION") {
        record_.fail("SECTION or EOF is expected, got \"" + messageText(record_.kind().substr(0, 40)) + "\"");
      }
      readSection(seen, deferred);
    }
    noteEnd(seen, deferred);
    readDeferred(deferred);
    report_.note("blank line", scanner_.blankLines());
  }

  // What does not end as it should is read all the same where its entities were whole.
  void noteEnd(const std::array<bool, kSections>& seen, const std::vector<Bookmark>& deferred) {
    const bool drawn = seen[kEntities] || std::any_of(deferred.begin(), deferred.end(),
                                                      [](const Bookmark& mark) { return mark.section == kEntities; });
    if (!hasTag_ && !drawn) { scanner_.fail(record_.line(), "the file ends without EOF"); }
    if (!hasTag_) { report_.note("end of the file (EOF) that is missing"); }
    if (hasTag_ && !scanner_.restIsBlank()) { report_.note("passage after the end of the file (EOF)"); }
  }

  // A section that comes before one that it needs waits for the end of the file.
  void readSection(std::array<bool, kSections>& seen, std::vector<Bookmark>& deferred) {
    const std::string_view name = record_.name(2);
    size_t section = 0;
    bool ready = true;
    while (section < kSections && sections()[section].name != name) { ready = seen[section++] && ready; }
    if (section == kHeader) {
      readHeader();
      seen[kHeader] = true;
    }
    if (section == kHeader || section == kSections || !ready) {
      if (section != kHeader && section != kSections) { deferred.push_back({section, tag_, scanner_.place()}); }
      while (takeInSection()) {}
      return;
    }
    seen[section] = true;
    (this->*sections()[section].read)();
  }

  void readDeferred(const std::vector<Bookmark>& deferred) {
    for (size_t section = 0; section < kSections; ++section) {
      for (const Bookmark& mark : deferred) {
        if (mark.section != section) { continue; }
        tag_ = mark.tag;
        hasTag_ = true;
        scanner_.goTo(mark.place);
        (this->*sections()[section].read)();
      }
    }
  }

  // ---- Header: a name (9) and its values
  void readHeader() {
    std::string_view name;
    int version = 0;
    bool otherPage = false;
    int unit = 0;
    DxfHeadSize heads;
    for (const DxfTag& tag : record_.tags()) {
      if (tag.code == 9) { name = trimmed(tag.value); }
      if (tag.code == 999) { readNote(tag); }
      if (name == "$ACADVER" && tag.code == 1) { version = versionOf(tag); }
      if (name == "$DWGCODEPAGE" && tag.code == 3) {
        const std::string_view page = trimmed(tag.value);
        otherPage = !equalWithoutCase(page, "ANSI_1252") && !equalWithoutCase(page, "ASCII");
      }
      if (name == "$INSUNITS" && tag.code == 70) { unit = record_.integerOf(tag); }
      if (name == "$CLAYER" && tag.code == 8) { currentLayer_ = trimmed(tag.value); }
      if (name == "$DIMSCALE" && tag.code == 40) { heads.scale = record_.realOf(tag); }
      if (name == "$DIMASZ" && tag.code == 40) { heads.size = record_.realOf(tag); }
    }
    styles_.setHeadSize(heads);
    constexpr int kFirstInUtf8 = 1021;
    styles_.setEncoding(version >= kFirstInUtf8 ? DxfEncoding::kUtf8
                        : otherPage             ? DxfEncoding::kOther
                                                : DxfEncoding::kWindows1252);
    const double millimetres = millimetresOfUnit(unit);
    if (own_.parameters) {
      builder_.setParameters(*own_.parameters);
      if (own_.sheet) { builder_.setSheet(*own_.sheet); }
      entities_.setOwn(true);
    } else if (millimetres > 0.0) {
      Parameters parameters;
      parameters.setUnit(millimetres);
      builder_.setParameters(parameters);
    }
  }

  static int versionOf(const DxfTag& tag) {  // "AC1015"
    const std::string_view text = trimmed(tag.value);
    const auto number = numberText::parseInteger(text.substr(std::min<size_t>(2, text.size())));
    return number ? static_cast<int>(std::min<long long>(*number, 100'000)) : 0;
  }

  void readNote(const DxfTag& tag) {
    if (!own_.take(tag.value)) { record_.refuse(tag, "a note as this program writes them"); }
  }

  void readTables() {
    while (takeInSection()) {
      if (record_.kind() == "LAYER") { styles_.addLayer(record_); }
      if (record_.kind() == "LTYPE") { styles_.addLineType(record_); }
      if (record_.kind() == "STYLE") { styles_.addFont(record_); }
      if (record_.kind() == "DIMSTYLE") { styles_.addHeadSize(record_); }
    }
  }

  void readBlocks() {
    DxfSink* sink = nullptr;
    while (takeInSection()) {
      if (record_.kind() == "BLOCK") {
        constexpr int kExternal = 4;
        DxfBlockRead block;
        block.name = dxfNameRead(record_.name(2), styles_.encoding()).text;
        block.base = record_.point(10);
        if (own_.parameters) { block.origin = readSymbolNote(record_.text(999)).value_or(block.origin); }
        if ((record_.integer(70) & kExternal) != 0) { report_.note("external file placed as a block"); }
        sink = &blocks_.begin(std::move(block));
      } else if (record_.kind() == "ENDBLK") {
        if (sink != nullptr) { entities_.finish(*sink); }
        sink = nullptr;
      } else if (sink != nullptr) {
        entities_.read(record_, *sink);
      }
    }
  }

  void readEntities() {
    while (takeInSection()) {
      const bool continues = record_.kind() == "VERTEX" || record_.kind() == "SEQEND";
      if (record_.has(5) && record_.name(5).empty()) { report_.note("empty handle"); }
      if (!continues) { builder_.beginEntity(record_.handle()); }
      entities_.read(record_, builder_);
    }
    entities_.finish(builder_);
    builder_.beginEntity(0);
  }

  // ---- Objects: groups, whose names a dictionary holds
  struct GroupRead {
    uint64_t handle = 0;
    std::string description;
    std::vector<uint64_t> members;
  };

  void readObjects() {
    std::unordered_map<uint64_t, std::string> names;
    std::vector<GroupRead> groups;
    while (takeInSection()) {
      if (record_.kind() == "DICTIONARY") { readDictionary(names); }
      if (record_.kind() == "GROUP") { groups.push_back(groupRead()); }
    }
    for (GroupRead& group : groups) {
      const auto name = names.find(group.handle);
      addGroup(group, name == names.end() ? std::string() : name->second);
    }
  }

  void readDictionary(std::unordered_map<uint64_t, std::string>& names) {
    std::string_view name;
    for (const DxfTag& tag : record_.tags()) {
      if (tag.code == 3) { name = tag.value; }
      if (tag.code == 350 || tag.code == 360) {
        names.emplace(record_.handleOf(tag), dxfNameRead(name, styles_.encoding()).text);
      }
    }
  }

  GroupRead groupRead() {
    GroupRead group{record_.handle(), dxfNameRead(record_.text(300), styles_.encoding()).text, {}};
    for (const DxfTag& tag : record_.tags()) {
      if (tag.code == 340) { group.members.push_back(record_.handleOf(tag)); }
    }
    return group;
  }

  void addGroup(const GroupRead& group, const std::string& name) {
    const bool unnamed = name.empty() || name.starts_with('*');
    if (own_.parameters) {
      const GroupName own = ownGroupName(group.description, unnamed ? "_" : name);
      builder_.addGroup(own.parent, own.name, group.members);
    } else {
      builder_.addGroup("", unnamed ? "_" : name, group.members);
    }
  }

  DxfScanner scanner_;
  DxfRecord record_;
  DxfTag tag_;
  bool hasTag_ = false;
  DxfOwnNotes own_;
  std::string_view currentLayer_;
  DxfStyles styles_;
  DxfBlocks blocks_;
  DxfReport report_;
  DxfEntityReader entities_;
  DxfBuilder builder_;
};

}  // namespace

ReadDrawing drawingFromDxf(std::string_view bytes, const std::string& file) {
  const std::string name = "\"" + messageText(file) + "\"";
  if (bytes.starts_with("AutoCAD Binary DXF")) {
    throw HostFailure(name + ": it is a binary DXF file; save it as an ASCII one");
  }
  if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    throw HostFailure(name + ": it is UTF-16 text, which no DXF file is");
  }
  return DxfReader(bytes, file).read();
}

ReadDrawing openDxf(const std::string& path) { return drawingFromDxf(readBytes(path, kMostDxfBytes).view(), path); }

}  // namespace brevan
