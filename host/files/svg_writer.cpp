#include "host/files/svg_writer.h"

#include <array>
#include <cmath>
#include <vector>

#include "frame/host/number_text.h"
#include "host/core/text_encoding.h"
#include "host/drawing/font_metrics.h"
#include "host/drawing/pens.h"
#include "host/drawing/shown_layers.h"
#include "host/drawing/strokes.h"
#include "host/drawing/turned_strokes.h"

namespace brevan {

namespace {

void appendColour(std::string& out, Colour colour) {
  constexpr std::string_view kHexDigits = "0123456789abcdef";
  out += '#';
  for (int shift = 20; shift >= 0; shift -= 4) { out += kHexDigits[colour >> static_cast<unsigned>(shift) & 0xFU]; }
}

// Characters that XML cannot hold become blanks.
std::string xmlText(std::string_view windows1252) {
  std::string out;
  for (size_t at = 0; at < windows1252.size(); ++at) {
    const char character = windows1252[at];
    switch (character) {
      case '&': out += "&amp;"; break;
      case '<': out += "&lt;"; break;
      case '>': out += "&gt;"; break;
      case '"': out += "&quot;"; break;
      default: {
        const bool control = static_cast<unsigned char>(character) < 0x20;
        out += control ? " " : toUtf8(windows1252.substr(at, 1));
        break;
      }
    }
  }
  return out;
}

std::string_view fontFamilies(FontFace face) {
  constexpr std::array<std::string_view, 3> kFamilies = {
      "Arial, 'Liberation Sans', Arimo, Helvetica, sans-serif",
      "'Times New Roman', 'Liberation Serif', Tinos, Times, serif",
      "'Courier New', 'Liberation Mono', Cousine, Courier, monospace"};
  return kFamilies[static_cast<size_t>(face)];
}

// Strokes as elements, a text for each layer. Millimetres from the sheet's upper left corner, y downwards.
class SvgSink : public StrokeSink {
 public:
  SvgSink(double sheetHeight, int layers) : height_(sheetHeight), layers_(static_cast<size_t>(layers)) {}

  void line(const StrokeStyle& style, Point a, Point b) override {
    std::string& out = beginPath(style);
    moveTo(out, 'M', a);
    moveTo(out, 'L', b);
    endPath(out, style);
  }

  void arc(const StrokeStyle& style, const ArcShape& arc) override {
    const double sweep = arcSweep(arc);
    std::string& out = beginPath(style);
    moveTo(out, 'M', arc.start);
    const bool full = std::abs(sweep) == 2.0 * kPi;
    if (full) { arcTo(out, arc, arc.centre * 2.0 - arc.start, false); }
    const Point end = full ? arc.start : arcPointAt(arc, angleOf(arc.end - arc.centre));
    arcTo(out, arc, end, !full && std::abs(sweep) > kPi);
    endPath(out, style);
  }

  void text(const StrokeStyle& style, const TextStroke& text) override {
    std::string& out = layer(style);
    out += "<text transform=\"translate(";
    appendPoint(out, text.baseline);
    out += ") rotate(";
    numberText::appendShortest(out, -text.angle);
    out += ")\" font-family=\"";
    out += fontFamilies(faceOf(text.font));
    attribute(out, "font-size", text.height);
    attribute(out, "textLength", text.width);
    out += "\" lengthAdjust=\"spacingAndGlyphs\" fill=\"";
    appendColour(out, penColour(style.pen, Ground::kPaper));
    if (text.underlined) { out += "\" text-decoration=\"underline"; }
    out += "\" xml:space=\"preserve\">";
    out += xmlText(text.text);
    out += "</text>\n";
  }

  void polygon(const StrokeStyle& style, std::span<const Point> corners) override {
    std::string& out = layer(style);
    out += "<path d=\"";
    char command = 'M';
    for (const Point corner : corners) {
      moveTo(out, command, corner);
      command = 'L';
    }
    out += "Z\" fill=\"";
    appendColour(out, penColour(style.pen, Ground::kPaper));
    out += "\"/>\n";
  }

  [[nodiscard]] const std::string& ofLayer(int index) const { return layers_[static_cast<size_t>(index)]; }

 private:
  std::string& layer(const StrokeStyle& style) { return layers_[static_cast<size_t>(style.layer)]; }

  static void attribute(std::string& out, std::string_view name, double value) {
    out += "\" ";
    out += name;
    out += "=\"";
    numberText::appendShortest(out, value);
  }

  void appendPoint(std::string& out, Point p) const {
    numberText::appendShortest(out, p.x);
    out += ' ';
    numberText::appendShortest(out, height_ - p.y);
  }

  void moveTo(std::string& out, char command, Point p) const {
    out += command;
    appendPoint(out, p);
  }

  void arcTo(std::string& out, const ArcShape& arc, Point end, bool large) const {
    const double radius = arcRadius(arc);
    out += 'A';
    numberText::appendShortest(out, radius);
    out += ' ';
    numberText::appendShortest(out, radius);
    out += large ? " 0 1 " : " 0 0 ";
    out += arc.clockwise ? "1 " : "0 ";
    appendPoint(out, end);
  }

  std::string& beginPath(const StrokeStyle& style) {
    std::string& out = layer(style);
    out += "<path d=\"";
    return out;
  }

  static void endPath(std::string& out, const StrokeStyle& style) {
    out += "\" stroke=\"";
    appendColour(out, penColour(style.pen, Ground::kPaper));
    attribute(out, "stroke-width", strokeWidth(style));
    appendDashes(out, style.dashes);
    out += "\"/>\n";
  }

  static void appendDashes(std::string& out, const DashPattern& dashes) {
    if (dashes.lengths.empty()) { return; }
    for (size_t at = 0; at < dashes.lengths.size(); ++at) {
      out += at == 0 ? "\" stroke-linecap=\"butt\" stroke-dasharray=\"" : " ";
      numberText::appendShortest(out, dashes.lengths[at]);
    }
    if (dashes.start != 0.0) { attribute(out, "stroke-dashoffset", dashes.start); }
  }

  double height_;
  std::vector<std::string> layers_;
};

void appendStart(std::string& out, const Sheet& sheet) {
  const std::string width = numberText::shortest(sheet.width);
  const std::string height = numberText::shortest(sheet.height);
  out += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"";
  out += width + "mm\" height=\"" + height + "mm\" viewBox=\"0 0 " + width + " " + height;
  out += "\" fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\">\n";
}

void appendLayer(std::string& out, int index, const Layer& layer, const std::string& elements) {
  out += "<g id=\"layer" + std::to_string(index) + "\" data-name=\"" + xmlText(layer.name) + "\">\n";
  out += elements;
  out += "</g>\n";
}

}  // namespace

std::string drawingSvg(const Drawing& drawing, const ExportOptions& options) {
  const Page page = options.tellPage(drawing);
  SvgSink sink(page.sheet.height, drawing.layerCount());
  TurnedStrokes turned(sink, page.rotation);
  StrokeWalk walk(drawing, toPage(page, drawing.parameters()), turned, page.zoom);
  const ShownLayers layers(drawing, options.page.layers);
  layers.forEachPrimitive(drawing, [&walk](const Primitive& primitive) { walk.primitive(primitive); });
  std::string out;
  appendStart(out, page.sheet);
  for (int index = 0; index < drawing.layerCount(); ++index) {
    if (layers.shows(index)) { appendLayer(out, index, *drawing.layer(index), sink.ofLayer(index)); }
  }
  out += "</svg>\n";
  return out;
}

}  // namespace brevan
