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

// Plain colours, then greys.
constexpr std::array<Colour, kFirstShade - 1> kFirstOnPaper = {0x000000, 0xFF0000, 0x008000, 0x0000FF, 0x008B8B,
                                                               0xC000C0, 0xA06000, 0x808080, 0x606060, 0x696969,
                                                               0x8C8C8C, 0xA8A8A8, 0x333333, 0x505050, 0xB8B8B8};

constexpr std::array<Colour, kFirstShade - 1> kFirstOnDark = {0xFFFFFF, 0xFF5050, 0x40D040, 0x7090FF, 0x00E0E0,
                                                              0xF060F0, 0xE0C040, 0xA0A0A0, 0xC8C8C8, 0x787878,
                                                              0x808080, 0xB4B4B4, 0x949494, 0x8A8A8A, 0xE0E0E0};

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

// Pens 1 to 9 by the plain entries of their hues; brown stands for yellow, which does not read on paper. Then the
// greys, the darkest for the pens that hidden lines and arrows come with.
constexpr std::array<int, kFirstShade - 1> kIndexOfFirstPens = {7, 1,   3,   5,   4,   6,   2,  8,
                                                                9, 252, 253, 254, 250, 251, 255};
constexpr int kFirstHue = 10;  // the first entry of the systematic ones
constexpr int kFirstGrey = 250;

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
  if (index < kFirstHue) { return kPlainIndex[static_cast<size_t>(std::max(index, 1)) - 1]; }
  if (index >= kFirstGrey) { return kGreyIndex[static_cast<size_t>(std::min(index, 255) - kFirstGrey)]; }
  const Shade shade = kIndexShades[static_cast<size_t>(index % kShades)];
  return packed(onWheel((index - kFirstHue) / kShades, shade.low, shade.high));
}

int colourIndex(int pen) {
  if (pen < 1 || pen > kPens) { pen = 1; }
  return pen < kFirstShade ? kIndexOfFirstPens[static_cast<size_t>(pen) - 1] : pen - kFirstShade + kFirstHue;
}

int penOfIndex(int index) {
  if (index >= kFirstHue && index < kFirstGrey) { return index - kFirstHue + kFirstShade; }
  const auto* const first = std::find(kIndexOfFirstPens.begin(), kIndexOfFirstPens.end(), index);
  return first == kIndexOfFirstPens.end() ? 1 : static_cast<int>(first - kIndexOfFirstPens.begin()) + 1;
}

}  // namespace brevan
