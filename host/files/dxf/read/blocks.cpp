#include "host/files/dxf/read/blocks.h"

#include <algorithm>

namespace brevan {

bool hasOneScale(const DxfInsert& insert) {
  const double x = std::abs(insert.scaleX);
  const double y = std::abs(insert.scaleY);
  return x > 0.0 && std::abs(x - y) <= 1e-9 * x;
}

void DxfBlocks::Collector::take(const DxfLook& look, Geometry&& geometry) {
  pieces->push_back({look, std::move(geometry)});
}

void DxfBlocks::Collector::insert(const DxfLook& look, DxfInsert insert) {
  pieces->push_back({look, std::move(insert)});
}

void DxfBlocks::Collector::replaceLast(const DxfLook& look, Geometry geometry) {
  pieces->back() = {look, std::move(geometry)};
}

DxfSink& DxfBlocks::begin(DxfBlockRead block) {
  std::string name = block.name;
  const auto [entry, isNew] = blocks_.try_emplace(std::move(name));
  if (isNew) { entry->second.block = std::move(block); }
  unused_.clear();
  collector_.pieces = isNew ? &entry->second.block.pieces : &unused_;
  return collector_;
}

const DxfBlockRead* DxfBlocks::find(std::string_view name) const {
  const auto found = blocks_.find(std::string(name));
  return found == blocks_.end() ? nullptr : &found->second.block;
}

size_t DxfBlocks::blockParts(Entry& entry) {
  if (entry.parts > 0) { return entry.parts; }
  const std::string quoted = "block \"" + entry.block.name + "\"";
  if (std::find(open_.begin(), open_.end(), &entry) != open_.end()) { throw DxfRefusal(quoted + " contains itself"); }
  if (open_.size() >= kDeepest) {
    throw DxfRefusal(quoted + " lies deeper than " + std::to_string(kDeepest) + " blocks within blocks");
  }
  open_.push_back(&entry);
  size_t parts = 1;
  for (const DxfPiece& piece : entry.block.pieces) {
    const DxfInsert* insert = std::get_if<DxfInsert>(&piece.what);
    parts += insert == nullptr ? 1 : partsOf(*insert);
    if (parts > kMostParts) {
      throw DxfRefusal(quoted + " expands to more than " + std::to_string(kMostParts) + " parts");
    }
  }
  open_.pop_back();
  entry.parts = parts;
  return parts;
}

size_t DxfBlocks::partsOf(const DxfInsert& insert) {
  const auto found = blocks_.find(insert.block);
  if (found == blocks_.end()) { return 1; }
  const size_t parts = blockParts(found->second);
  const auto most = static_cast<long long>(kMostParts);
  const bool tooMany = insert.columns > most || insert.rows > most || insert.columns * insert.rows > most ||
                       static_cast<size_t>(insert.columns * insert.rows) * parts > kMostParts;
  if (tooMany) {
    throw DxfRefusal("block \"" + insert.block + "\", placed in " + std::to_string(insert.rows) + " rows and " +
                     std::to_string(insert.columns) + " columns, comes to more than " + std::to_string(kMostParts) +
                     " parts");
  }
  return parts * static_cast<size_t>(insert.columns * insert.rows);
}

// What one part leaves open; false for one that no symbol can hold.
bool DxfBlocks::leaveOpen(const DxfPiece& piece, DxfOpenLook& open) {
  if (piece.look.layer != 0) { return false; }
  open.add(piece.look);
  const DxfInsert* insert = std::get_if<DxfInsert>(&piece.what);
  if (insert == nullptr) { return true; }
  const DxfBlockRead* inner = find(insert->block);
  const bool single = hasOneScale(*insert) && insert->columns == 1 && insert->rows == 1 && !insert->isPicture;
  if (inner == nullptr || !single) { return false; }
  const DxfOpenLook* within = asSymbol(*inner);
  // A symbol within a symbol hands on its pen alone, and that to all that is open.
  const bool plain = piece.look.pen == DxfLook::kByLayer && piece.look.linetype == DxfLook::kByLayer &&
                     piece.look.width == DxfLook::kByLayer;
  return within != nullptr && (plain || !within->any());
}

std::optional<DxfOpenLook> DxfBlocks::judge(const DxfBlockRead& block) {
  DxfOpenLook open;
  if (block.origin.kind != DxfBlockOrigin::Kind::kForeign) { return open; }
  if (block.name.starts_with('*')) { return std::nullopt; }
  const bool fits = std::all_of(block.pieces.begin(), block.pieces.end(),
                                [&](const DxfPiece& piece) { return leaveOpen(piece, open); });
  return fits ? std::optional(open) : std::nullopt;
}

const DxfOpenLook* DxfBlocks::asSymbol(const DxfBlockRead& block) {
  Entry& entry = blocks_.find(block.name)->second;
  if (!entry.judged) { entry.asSymbol = judge(block); }
  entry.judged = true;
  return entry.asSymbol ? &*entry.asSymbol : nullptr;
}

}  // namespace brevan
