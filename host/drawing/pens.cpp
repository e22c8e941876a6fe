#include "host/drawing/pens.h"

#include <algorithm>
#include <array>

namespace brevan {

namespace {

constexpr int kHues = 24;
constexpr int kShades = 10;
constexpr int kFirstShade = 16;  // the first pen of the systematic ones

struct Channels {
  int red = 0;
  int green = 0;
  int blue = 0;
};

constexpr Channels channels(Colour colour) {
  return {static_cast<int>(colour >> 16 & 0xFFU), static_cast<int>(colour >> 8 & 0xFFU),
          static_cast<int>(colour & 0xFFU)};
}

constexpr Colour packed(const Channels& c) {
  return static_cast<Colour>(c.red) << 16 | static_cast<Colour>(c.green) << 8 | static_cast<Colour>(c.blue);
}

// A colour of the wheel, its strongest channel at `high`, its weakest at `low`.
constexpr Channels onWheel(int hue, int low, int high) {
  constexpr int kHuesASixth = kHues / 6;
  const int sixth = hue / kHuesASixth;
  const int rise = low + (high - low) * (hue % kHuesASixth) / kHuesASixth;
  const int fall = high - (high - low) * (hue % kHuesASixth) / kHuesASixth;
  const std::array<Channels, 6> wheel = {{{high, rise, low},
                                          {fall, high, low},
                                          {low, high, rise},
                                          {low, fall, high},
                                          {rise, low, high},
                                          {high, low, fall}}};
  return wheel[static_cast<size_t>(sixth)];
}

// Strongest and weakest channel of the shades of one hue, dark enough to read on white.
struct Shade {
  int low = 0;
  int high = 0;
};
constexpr std::array<Shade, kShades> kShadesOnPaper = {
    {{0, 200}, {72, 184}, {0, 168}, {60, 152}, {0, 136}, {48, 120}, {0, 104}, {36, 88}, {0, 72}, {24, 56}}};

constexpr std::array<Colour, kFirstShade - 1> kFirstOnPaper = {0x000000, 0xFF0000, 0x008000, 0x0000FF, 0x008B8B,
                                                               0xC000C0, 0xA06000, 0x808080, 0x606060, 0xFF6600,
                                                               0x4B0082, 0x00A060, 0x996633, 0xC71585, 0x2E5E8C};

constexpr std::array<Colour, kFirstShade - 1> kFirstOnDark = {0xFFFFFF, 0xFF5050, 0x40D040, 0x7090FF, 0x00E0E0,
                                                              0xF060F0, 0xE0C040, 0xA0A0A0, 0xC8C8C8, 0xFF9040,
                                                              0xB080FF, 0x40E0A0, 0xD0A070, 0xFF70B8, 0x80B8E8};

constexpr Colour systematicOnPaper(int pen) {
  const int step = pen - kFirstShade;
  const Shade shade = kShadesOnPaper[static_cast<size_t>(step % kShades)];
  return packed(onWheel(step / kShades, shade.low, shade.high));
}

// Half-way to white, so that the dark shades stand off a dark ground too.
constexpr Colour lightened(Colour colour) {
  const Channels c = channels(colour);
  return packed({(c.red + 0xFF) / 2, (c.green + 0xFF) / 2, (c.blue + 0xFF) / 2});
}

// The colour index: nine plain colours, 24 hues of ten shades, six greys.
constexpr std::array<Colour, 9> kPlainIndex = {0xFF0000, 0xFFFF00, 0x00FF00, 0x00FFFF, 0x0000FF,
                                               0xFF00FF, 0xFFFFFF, 0x808080, 0xC0C0C0};
constexpr std::array<Colour, 6> kGreyIndex = {0x333333, 0x505050, 0x696969, 0x828282, 0xBEBEBE, 0xFFFFFF};
constexpr std::array<Shade, kShades> kIndexShades = {
    {{0, 255}, {127, 255}, {0, 165}, {82, 165}, {0, 127}, {63, 127}, {0, 76}, {38, 76}, {0, 38}, {19, 38}}};

int squaredDistance(Colour first, Colour second) {
  const Channels a = channels(first);
  const Channels b = channels(second);
  const auto square = [](int difference) { return difference * difference; };
  return square(a.red - b.red) + square(a.green - b.green) + square(a.blue - b.blue);
}

// Pens 1 to 9 by the plain entries of their hues; brown stands for yellow, which does not read on paper.
constexpr std::array<int, 9> kIndexOfPlainPens = {7, 1, 3, 5, 4, 6, 2, 8, 9};
constexpr int kFirstOwnHue = 10;  // the first entry of the systematic ones, and the first pen without an entry
constexpr int kFirstGrey = 250;

int nearestSystematicIndex(Colour colour) {
  int nearest = kFirstOwnHue;
  for (int index = kFirstOwnHue; index < kFirstGrey; ++index) {
    if (squaredDistance(colour, indexedColour(index)) < squaredDistance(colour, indexedColour(nearest))) {
      nearest = index;
    }
  }
  return nearest;
}

int nearestGreyPen(Colour colour) {
  int nearest = 1;
  for (const int pen : {8, 9}) {
    const auto away = [colour](int of) { return squaredDistance(colour, penColour(of, Ground::kPaper)); };
    if (away(pen) < away(nearest)) { nearest = pen; }
  }
  return nearest;
}

}  // namespace

Colour penColour(int pen, Ground ground) {
  if (pen < 1 || pen > kPens) { pen = 1; }
  if (pen < kFirstShade) {
    return (ground == Ground::kPaper ? kFirstOnPaper : kFirstOnDark)[static_cast<size_t>(pen) - 1];
  }
  const Colour onPaper = systematicOnPaper(pen);
  return ground == Ground::kPaper ? onPaper : lightened(onPaper);
}

Colour indexedColour(int index) {
  if (index < 10) { return kPlainIndex[static_cast<size_t>(std::max(index, 1)) - 1]; }
  if (index >= 250) { return kGreyIndex[static_cast<size_t>(std::min(index, 255)) - 250]; }
  const Shade shade = kIndexShades[static_cast<size_t>(index % kShades)];
  return packed(onWheel((index - 10) / kShades, shade.low, shade.high));
}

int colourIndex(int pen) {
  if (pen < 1 || pen > kPens) { pen = 1; }
  if (pen >= kFirstShade) { return pen - kFirstShade + kFirstOwnHue; }
  return hasOwnIndex(pen) ? kIndexOfPlainPens[static_cast<size_t>(pen) - 1]
                          : nearestSystematicIndex(penColour(pen, Ground::kPaper));
}

int penOfIndex(int index) {
  if (index >= kFirstGrey) { return nearestGreyPen(indexedColour(index)); }
  if (index >= kFirstOwnHue) { return index - kFirstOwnHue + kFirstShade; }
  const auto* const plain = std::find(kIndexOfPlainPens.begin(), kIndexOfPlainPens.end(), index);
  return plain == kIndexOfPlainPens.end() ? 1 : static_cast<int>(plain - kIndexOfPlainPens.begin()) + 1;
}

bool hasOwnIndex(int pen) { return pen < kFirstOwnHue || pen >= kFirstShade; }

}  // namespace brevan
