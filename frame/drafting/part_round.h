#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "frame/drafting/point.h"
#include "frame/host/cad_window.h"

// The steps by which every command that draws parts goes from one to the next: ask, open the part's group, draw, close
// the group, end the part.
namespace ardenix {

// Draws round after round until one answers false, since the user has enough, or until Escape.
template <class Round>
void drawRounds(CCadWindow& view, Round&& round) {
  while (view.gsEscapePressed() == 0 && round()) {}
}

// Nothing when the user ended the prompt.
std::optional<Point> askPoint(CCadWindow& view, std::string_view prompt);

// The same for a place to draw at, asked again, with a message, where the point lies so far from the origin that
// coordinates cannot hold a thousandth there and outlines would fall apart.
std::optional<Point> askPlace(CCadWindow& view, std::string_view prompt);

// A point, asked again until it differs from another: together they are to give a direction.
std::optional<Point> askPointApart(CCadWindow& view, std::string_view prompt, Point other);
// The number in a field of a typed text, fields counted from 1 with blanks between, with a full stop or a comma; 0
// where there is none. The first one typed at the prompt bar.
double numberTyped(std::string_view typed, int field);
double askNumber(CCadWindow& view, std::string_view prompt);

// Nothing is selected and the workspace is empty.
void clearAll(CCadWindow& view);

// Opens a group named prefix + next free number under the parent for what is drawn next; returns its name.
std::string startPart(CCadWindow& view, std::string_view parent, std::string_view prefix);
// Selects what was drawn into the group and makes one part of it.
void selectPart(CCadWindow& view, std::string_view parent, std::string_view group);
// Turns the selection about `centre` so that the direction to `from` becomes the direction to `onto`. A point on the
// centre gives no direction: nothing is sent then.
void turnPart(CCadWindow& view, Point centre, Point from, Point onto);
// What is drawn next belongs to no part.
void endPart(CCadWindow& view);

}  // namespace ardenix
