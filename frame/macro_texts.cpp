#include "frame/macro_texts.h"

#include "frame/host/macro_quote.h"
#include "frame/host/number_text.h"

namespace ardenix::macroText {

using numberText::format;

std::string parent(std::string_view name) { return format("#PARENT %s", quotedForMacro(name)); }

std::string beginGroup(std::string_view name) { return format("#BEGINGROUP %s", quotedForMacro(name)); }

std::string selectName(std::string_view parent, std::string_view group) {
  return format("#SELECTNAME %s", quotedForMacro(format("%s %s", parent, group)));
}

std::string linkSelection(std::string_view group) { return format("#LINKSEL %s", quotedForMacro(group)); }

std::string selectLayer(std::string_view layer) { return format("#SELECTLAYER %s", quotedForMacro(layer)); }

std::string moveToLayer(std::string_view layer) { return format("#WSNEWLAY %s", quotedForMacro(layer)); }

std::string rotate(Point centre, double angle) {
  return format("#ROTATE [%.8f,%.8f] \"Y\" %.8f [#]", centre.x, centre.y, angle);
}

std::string rotateOnto(Point centre, Point from, Point onto) {
  return format("#ROTATE [%.8f,%.8f] \"N\" [%.8f,%.8f] [%.8f,%.8f] [#]", centre.x, centre.y, from.x, from.y, onto.x,
                onto.y);
}

std::string move(Point from, Point to) { return format("#MOVE [%.8f,%.8f] [%.8f,%.8f]", from.x, from.y, to.x, to.y); }

std::string repeatLinear(int copies, Point from, Point to) {
  return format("#REPEAT %d \"Y\" [%.8f,%.8f] [%.8f,%.8f] [#]", copies, from.x, from.y, to.x, to.y);
}

std::string repeatPolar(int copies, Point centre, double angle) {
  return format("#REPEAT %d \"N\" [%.8f,%.8f] %.8f", copies, centre.x, centre.y, angle);
}

std::string cutOut(Point corner, Point opposite) {
  return format("#SNIP \"Y\" \"Y\" \"N\" [%.8f,%.8f] [%.8f,%.8f] [#]", corner.x, corner.y, opposite.x, opposite.y);
}

std::string lockAngle(double angle) { return format("#LOCKANG \"K\" %.8f [#]", angle); }

std::string lockOntoLine(Point at) { return format("#LOCKANG L [%.8f,%.8f]", at.x, at.y); }

}  // namespace ardenix::macroText
