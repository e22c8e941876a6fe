#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "frame/host/window.h"

// Kinds of primitive, as the primitive header and the scans number them.
enum PrimitiveType : int {
  kAnyPrimitive = 0,
  kGroupPrimitive = 2,
  kLinePrimitive = 3,
  kArcPrimitive = 4,
  kTextPrimitive = 6,
  kSymbolPrimitive = 7,
  kDimensionPrimitive = 8,
  kArrowPrimitive = 10,
  kHatchPrimitive = 11,
};

struct PrimHeader {
  int type = 0;
  int layer = 0;
  int pen = 1;
  int linetype = 1;
  double width = 0.0;  // tenths of a millimetre on paper
};

// P1 to P12 of a drawing; p[1] is P1. P1 = the scale's denominator, P3 = 100000 x millimetres per
// drawing unit, P6 = P7 = the coordinate system (1 Cartesian, 0 survey), P10 = the orientation (0, 1).
struct DrawingParms {
  static constexpr int kCount = 12;
  double p[kCount + 1] = {};
};

// The defaults of new texts, in the order in which TEXTDEFAULTS reports them.
struct TextDefaults {
  double height = 35.0;  // tenths of a millimetre on paper
  int justification = 1;
  double angle = 0.0;
  int style = 0;
  double width = 1.0;  // width factor; 0 stands for 1
  std::string font = "Arial";
  int pen = 1;
};

// What the answers to a question are called.
struct AnswerNames {
  std::string_view yes;
  std::string_view no;
};

// How a text that is read is written, as gsSetFont takes it.
struct FontDef {
  std::string name;
  int pen = 1;
  double height = 0.0;  // tenths of a millimetre on paper
  double angle = 0.0;   // tenths of a degree on paper
  int style = 0;
  int justification = 1;
  double widthFactor = 1.0;
};

struct LayerDef {
  std::string name;
  bool visible = true;
  bool locked = false;
  int pen = 1;  // of primitives whose pen is by layer
};

// The host's drawing view, on which a command runs. Coordinates are drawing units, x to the right and y
// upwards, unless the drawing's orientation shows the paper otherwise; angles are degrees
// counter-clockwise. Text heights, line widths and arrow heads are tenths of a millimetre on paper.
// Names of layers and groups match exactly; names of macro variables without regard to case.
class CCadWindow : public CWnd {
 public:
  // Expires with the view. Whoever keeps a view's address from one command to the next keeps this beside it, since a
  // later view may stand at the same address.
  [[nodiscard]] std::weak_ptr<const void> life() const { return life_; }

  // ---- Adding a primitive: header, one geometry call, gsAddPrim ------------------------------------
  virtual void gsSetPrimHeader(int type, int, int, int layer, int pen, int linetype, double width, int, int) = 0;
  virtual void gsSetLine(double x1, double y1, double x2, double y2) = 0;
  // direction: 0 counter-clockwise, 1 clockwise from start to end; start equal to end is a full circle.
  virtual void gsSetArc(double startX, double startY, double centreX, double centreY, double endX, double endY,
                        int direction, double = 1.0, double = 0.0) = 0;
  // angle: tenths of a degree on paper; style flags: 4 underline, 16 erf numbers; pen 256 = by layer;
  // justification 1-9 and 11-19 (see TextJustification of the drawing engine).
  virtual void gsSetFont(std::string_view font, int pen, double height, double angle, int style, int justification,
                         double widthFactor, double, double) = 0;
  virtual void gsSetText(double x, double y, std::string_view text) = 0;
  // From the tail to the head; head length and width; three style numbers, the third the pen.
  virtual void gsSetArrow(double x1, double y1, double x2, double y2, double length, double width, int style1,
                          int style2, int style3) = 0;
  // Adds the primitive set up. Returns its id. Throws HostFailure for one that is not finite.
  virtual int gsAddPrim() = 0;

  // ---- Input ------------------------------------------------------------------------------------------
  // 0 with a point; non-zero when the user ended the prompt (space bar, Escape).
  virtual int gsGetPointFromUser(std::string_view prompt, double& x, double& y) = 0;
  // In: the default offered; out: the text typed, limits::kLongestAnswer characters at most, "" when
  // the user cancelled.
  virtual void gsGetTextFromPromptBar(std::string_view prompt, std::string& text, int) = 0;
  // Lets the prompts for a text that follow be left backwards, to the question before, or no longer.
  virtual void gsAllowBack(int on) = 0;
  // Non-zero when the last prompt for a text was left so.
  virtual int gsBackPressed() = 0;
  // Whether the user who pressed Escape gives up what the command is making; non-zero is yes. A person is asked, a
  // script only where a reply follows.
  virtual int gsGivesUp(std::string_view question) = 0;
  // A yes/no question; non-zero is yes.
  virtual int gsReply(std::string_view question) = 0;
  // One of two answers that have names of their own; non-zero is the first. The user may also leave the question:
  // gsEscapePressed then.
  virtual int gsReply(std::string_view question, const AnswerNames& names) = 0;
  // Items separated by commas, "&" marking the mnemonic; returns the item chosen from 1, 0 for none.
  virtual int gsSubMenu(std::string_view items) = 0;
  // Non-zero from the moment the user pressed Escape until the command ends.
  virtual int gsEscapePressed() = 0;
  virtual void gsSetPrompt(std::string_view text) = 0;
  virtual void gsSetStatus(std::string_view text) = 0;
  virtual void gsSetProgress(int done, int total, std::string_view text) = 0;
  // The same of work that keeps what it has done so far: non-zero once the user pressed Escape, and gsEscapePressed
  // then.
  virtual int gsStopsAtProgress(int done, int total, std::string_view text) = 0;
  virtual void gsCursorWait(int on) = 0;
  virtual void gsSetCursorHold(int on) = 0;
  virtual void gsSetRubberBand(int on) = 0;
  virtual void gsSetSnapMode(int mode) = 0;
  virtual void gsCursorSnapPoint(int on) = 0;
  virtual void gsGetCurrCoord(double& x, double& y) = 0;
  virtual void gsSetCurrCoord(double x, double y) = 0;
  // Asks for a pen; in: the pen offered. Non-zero when one was chosen.
  virtual int gsSetupPenDialog(std::string_view title, int& pen) = 0;

  // ---- Macro language -----------------------------------------------------------------------------------
  virtual int gsExecuteMacro(std::string_view text) = 0;
  // Return non-zero when the variable is set; an unset one reads as 0 or "".
  virtual int gsGetMacVar(std::string_view name, double& value) = 0;
  virtual int gsGetMacStrVar(std::string_view name, char* buffer, int size) = 0;
  virtual void gsSetMacStrVar(std::string_view name, std::string_view text) = 0;

  // ---- Layers, counted from 0 -------------------------------------------------------------------------------
  // Makes the layer current, existing or new; returns its index.
  virtual int gsAddLayer(std::string_view name) = 0;
  // -1 where there is none.
  virtual int gsGetLayerIndexFromName(std::string_view name) = 0;
  virtual int gsGetLayerCount() = 0;
  virtual int gsGetLayerDefIndex(int index, LayerDef& layer) = 0;
  virtual int gsSetLayerDefIndex(int index, const LayerDef& layer) = 0;
  virtual int gsGetCurrentLayer() = 0;
  virtual std::string gsGetCurrentLayerName() = 0;
  virtual void gsSetCurrentLayer(int index) = 0;
  // Delete what lies on the layer, and the layer. The layer "0" stays, emptied.
  virtual void gsDeleteLayer(std::string_view name) = 0;
  virtual void gsDeleteLayer(int index) = 0;
  virtual void gsSetLayerVisibility(int index, int shown, int) = 0;
  virtual int gsGetLayerLockedState() = 0;
  virtual void gsSetLayerLockedState(int locked) = 0;

  // ---- Reading ----------------------------------------------------------------------------------------------
  // Makes the nearest primitive on a visible layer within the aperture current and returns its type; 0
  // where there is none. A type other than 0 looks at primitives of that type only.
  virtual int gsNearestPrim(int type, double x, double y) = 0;
  virtual int gsGetLine(double& x1, double& y1, double& x2, double& y2) = 0;
  virtual int gsGetArc(double& startX, double& startY, double& centreX, double& centreY, double& endX, double& endY,
                       int& direction) = 0;
  virtual int gsGetText(double& x, double& y, char* buffer, int size) = 0;
  virtual int gsGetFont(FontDef& font) = 0;
  virtual int gsGetPrimHeader(PrimHeader& header) = 0;
  // Selects what the group of the current primitive holds, and nothing else, and makes that group current for
  // gsGetObject. Returns the number of its members, 0 for a primitive in no group.
  virtual int gsSelectGroup() = 0;
  // Makes the group of the current primitive current for gsGetObject. Returns its number in the drawing, 0 for a
  // primitive in no group.
  virtual int gsGetGroup() = 0;
  // A scan over primitives of a type (0 all, 2 groups) on a layer (-1 all) whose bounds meet the window
  // (all zeros: everywhere). With both flags set only over what is selected, where something is. Handles are
  // above 0.
  virtual int gsGetListHandle(int type, int layer, int flag, double x1, double y1, double x2, double y2, int,
                              int flag2) = 0;
  // Makes the next primitive or group current and returns its type, 0 at the end.
  virtual int gsGetNextPrim(int handle) = 0;
  virtual void gsFreeListHandle(int handle) = 0;
  // Parent and name of the group that a scan made current; valid until the drawing changes.
  virtual int gsGetObject(std::string_view& parent, std::string_view& name) = 0;
  // Setting the current primitive up in another view, whose gsAddPrim then adds it: header first, then geometry. It
  // goes on the layer of the same name, made where there is none; a symbol takes its definition along.
  virtual int gsCopyPrimHeader(CCadWindow& target) = 0;
  virtual int gsCopyPrim(CCadWindow& target) = 0;

  // ---- View and drawing ----------------------------------------------------------------------------------------
  virtual void gsClearSelection() = 0;
  virtual void gsClearWorkSpace() = 0;
  virtual void gsSetViewDirty(int) = 0;
  virtual void gsRefresh() = 0;
  virtual void gsZoomAll() = 0;
  virtual void gsZoomRect(double x1, double y1, double x2, double y2) = 0;
  virtual void gsGetDrawingParms(DrawingParms& parms) = 0;
  virtual void gsSetDrawingParms(const DrawingParms& parms) = 0;
  virtual void gsStartPat(std::string_view name) = 0;
  // Ends the host function in progress.
  virtual void gsEndFunc() = 0;
  virtual int gsGetCurrPen() = 0;
  // Red, green, blue as 0xRRGGBB.
  virtual unsigned gsGetPenColor(int pen) = 0;
  virtual int gsGetDimDefStyle() = 0;
  virtual void gsSetDimDefStyle(int style) = 0;
  virtual void gsGetTextDefaultParams(TextDefaults& defaults) = 0;
  // 10 draws as usual, 13 draws temporary marks.
  virtual void gsSetDrawMode(int mode) = 0;
  // A temporary line in a pen, gone at the next refresh.
  virtual void gsDisplayLine(double x1, double y1, double x2, double y2, int pen) = 0;
  virtual void gsSetDisplayToCopy() = 0;
  virtual void gsShowLegendBar(int shown) = 0;
  virtual void gsCenterPaper(double x, double y) = 0;
  // The paper becomes the smallest ISO sheet, on its side or upright, that holds the window; the window's middle is
  // its.
  virtual void gsFitPaper(double x1, double y1, double x2, double y2) = 0;
  // Finds the smallest closed boundary round the point and draws nothing; non-zero when found.
  virtual int gsAutoPerim(double x, double y) = 0;
  virtual void gsSetAutoperimPromptFlag(int on) = 0;

 private:
  std::shared_ptr<const void> life_ = std::make_shared<char>('\0');
};
