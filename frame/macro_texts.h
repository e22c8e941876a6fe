#pragma once

#include <string>
#include <string_view>

#include "frame/point.h"

// The macro commands that the module sends to the host, one function a form. Points and angles go out
// with eight decimals; angles are degrees, counter-clockwise. Names are quoted so that no text can end
// its quotes.
namespace ardenix::macroText {

inline constexpr std::string_view kRootParent = "#PARENT \"A\"";
inline constexpr std::string_view kNextPattern = "#STARTPAT \"P1\"";
inline constexpr std::string_view kFreeAngle = "#LOCKANG \"U\"";
// What is drawn between the two joins the selection.
inline constexpr std::string_view kSelectNew = "#SELECTNEW 1";
inline constexpr std::string_view kSelectNewEnd = "#SELECTNEW 0";
// What happens between the two is one step of undo.
inline constexpr std::string_view kUndoStep = "SETMACUNDO 1";
inline constexpr std::string_view kUndoStepEnd = "SETMACUNDO 0";

std::string parent(std::string_view name);
std::string beginGroup(std::string_view name);
std::string selectName(std::string_view parent, std::string_view group);
std::string linkSelection(std::string_view group);
std::string selectLayer(std::string_view layer);
std::string moveToLayer(std::string_view layer);

// Turns the selection about `centre`: by an angle, or so that the direction to `from` becomes the
// direction to `onto`.
std::string rotate(Point centre, double angle);
std::string rotateOnto(Point centre, Point from, Point onto);
std::string move(Point from, Point to);
// Adds copies of the selection, each displaced by the vector from -> to, or turned about `centre` by the
// angle.
std::string repeatLinear(int copies, Point from, Point to);
std::string repeatPolar(int copies, Point centre, double angle);

// Removes what the selection, or else the drawing, has inside the window between two corners.
std::string cutOut(Point corner, Point opposite);

// Locks the cursor at an angle, or to the line at a point.
std::string lockAngle(double angle);
std::string lockOntoLine(Point at);

}  // namespace ardenix::macroText
