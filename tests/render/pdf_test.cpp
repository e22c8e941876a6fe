#include <gtest/gtest.h>

#include <cmath>

#include "frame/host/core_services.h"
#include "frame/host/number_text.h"
#include "render/pdf_details.h"
#include "render/pdf_writer.h"

namespace brevan {
namespace {

void fill(Drawing& drawing) {
  Primitive primitive;
  for (const char* font : {"Arial", "Times New Roman", "Courier New"}) {
    primitive.geometry = Text{{20.0, 20.0}, "Text", font};
    drawing.add(primitive);
  }
  primitive.geometry = Line{{0.0, 0.0}, {50.0, 50.0}};
  primitive.linetype = 4;
  drawing.add(primitive);
}

TEST(Pdf, SameDrawingGivesTheSameBytes) {
  Drawing drawing;
  fill(drawing);
  EXPECT_EQ(pdfBytes(drawing, "Plate"), pdfBytes(drawing, "Plate"));
}

TEST(Pdf, CrossReferencesStillPointAtTheirObjects) {
  Drawing drawing;
  fill(drawing);
  const std::string file = pdfBytes(drawing, "A (title) with \\ and \xE4");
  const size_t startxref = file.rfind("startxref\n");
  ASSERT_NE(startxref, std::string::npos);
  const auto table = static_cast<size_t>(*numberText::leadingDouble(std::string_view(file).substr(startxref + 10)));
  ASSERT_EQ(file.substr(table, 4), "xref");
  size_t entry = file.find('\n', file.find('\n', table) + 1) + 1;
  for (int object = 0; file.substr(entry + 11, 5).find_first_not_of("0123456789") == std::string::npos; ++object) {
    const auto offset = static_cast<size_t>(*numberText::leadingDouble(std::string_view(file).substr(entry, 10)));
    const bool used = file[entry + 17] == 'n';
    if (used) { EXPECT_EQ(file.substr(offset, std::to_string(object).size() + 6), std::to_string(object) + " 0 obj"); }
    entry += 20;
  }
}

TEST(Pdf, FileOfAnotherMakeIsNotPatched) {
  std::string file = "%PDF-1.4 without a page";
  EXPECT_THROW(fixPageSize(file, *isoSheet("A4", true)), HostFailure);
  EXPECT_THROW(fixCreationDate(file), HostFailure);
}

}  // namespace
}  // namespace brevan
