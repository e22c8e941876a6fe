#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "frame/host/cad_window.h"
#include "host/drawing/drawing.h"
#include "host/drawing/drawing_source.h"
#include "host/window/cursor.h"
#include "host/window/events.h"
#include "host/window/macro_state.h"
#include "host/window/user.h"

namespace brevan {

class MacroVariables;

// What a window needs of its host.
struct WindowServices {
  User& user;
  MacroVariables& variables;
  EventSink* events = nullptr;        // null: nobody listens
  DrawingSource* drawings = nullptr;  // null: no drawing can be inserted
  SymbolTable* symbols = nullptr;     // shared by all windows
};

// Pen, line type and width of what the user and the macros draw.
struct DrawingStyle {
  int pen = 1;
  int linetype = 1;
  double width = 0.0;  // tenths of a millimetre on paper
};

// The event by which the place is told that HOME found where the user looked.
inline constexpr std::string_view kSeenCall = "seen";

// A temporary line, seen until the view is refreshed or the command ends; no part of the drawing.
struct Mark {
  Segment line;
  int pen = 1;
};

// The name of groups that have none.
inline constexpr std::string_view kUnnamedGroup = "_";

// The group that is open for what is drawn next. It enters the drawing with its first primitive.
class OpenGroup {
 public:
  // Ends the open group; what is drawn before the next one begins belongs to none.
  void setParent(std::string_view parent);
  // After setParent always a new group; else a name that is open already goes on. Without a name it always begins a new
  // one; an empty name ends the open group.
  void begin(std::string_view name);
  // The group for a new primitive, made where it is not there yet; 0 where none is open.
  GroupId forNewPrimitive(Drawing& drawing);
  [[nodiscard]] const std::string& parent() const { return parent_; }
  // Its number in the drawing; 0 while it is not there.
  [[nodiscard]] GroupId idIn(const Drawing& drawing) const;

 private:
  std::string parent_;
  bool parentIsFresh_ = false;
  std::optional<std::string> name_;
  GroupId id_ = 0;          // 0: not made yet
  std::string madeParent_;  // of the group that id_ is
};

// A drawing window: the view on which commands run.
class DrawingWindow : public CCadWindow {
 public:
  DrawingWindow(std::string name, const WindowServices& services);

  [[nodiscard]] const std::string& name() const { return name_; }
  [[nodiscard]] Drawing& drawing() { return drawing_; }
  [[nodiscard]] const Drawing& drawing() const { return drawing_; }
  // What a file held; for a window on which nothing was drawn yet.
  void setDrawing(Drawing drawing);
  [[nodiscard]] Cursor& cursor() { return cursor_; }
  [[nodiscard]] DrawingStyle& style() { return style_; }
  [[nodiscard]] OpenGroup& openGroup() { return openGroup_; }
  [[nodiscard]] TextDefaults& textDefaults() { return textDefaults_; }
  [[nodiscard]] MacroState& macroState() { return macroState_; }
  [[nodiscard]] BoundaryMap& boundaries();
  // What shows the window looks about this point now.
  void setSeen(Point centre) { macroState_.seen = {centre, true}; }
  // What shows the window is told what a command wants to be seen: a part, or with an empty box all of the drawing.
  void setZoom(std::function<void(const Box&)> zoom) { zoom_ = std::move(zoom); }
  // Brings the cursor to the middle of the paper; without a paper to that of what is seen, or drawn.
  void goHome();
  [[nodiscard]] const WindowServices& services() const { return services_; }
  // Nothing is current: picks and scans start anew.
  void clearCurrent() {
    current_ = 0;
    currentGroup_ = nullptr;
  }
  // The smallest sheet for what is drawn, where a command left the paper to the host.
  void fitPaper();
  [[nodiscard]] bool selectsNew() const { return selectsNew_; }
  void setSelectsNew(bool on) { selectsNew_ = on; }
  [[nodiscard]] bool escaped() const { return escaped_; }
  [[nodiscard]] const std::vector<Mark>& marks() const { return marks_; }

  // A command starts and ends with an empty selection and a free cursor, whatever it left out. It is one
  // step of undo, but for what SETMACUNDO brackets; where it does not end well the drawing is as before.
  void beginCommand(std::string name);
  void endCommand(bool well);
  // Takes a primitive into the open group and, while new items are selected, into the selection.
  PrimitiveId addDrawn(Primitive primitive);
  // What was taken in last, by the command that runs now where one runs; copies that it makes of that are none. 0:
  // nothing.
  [[nodiscard]] PrimitiveId lastDrawn() const { return lastDrawn_; }
  // Draws as the desktop's own tools do: current layer and style, outside of any group, a step of undo.
  PrimitiveId addPlain(Geometry geometry, GroupId group = 0);
  // Throws RefusedChange where the current layer is locked, or hidden: nobody draws what he cannot see.
  void requireDrawable() const;
  // A layer that is there, visible and not locked: what lies on it may be changed.
  [[nodiscard]] bool isChangeable(PrimitiveId id) const;
  // Nearest on a visible layer within the aperture; what the open group holds comes first.
  [[nodiscard]] PrimitiveId pick(Point p, int type) const;
  // SETMACUNDO: what lies in the bracket is a step of undo of its own.
  void setUndoBracket(bool open);

  // ---- CCadWindow --------------------------------------------------------------------------------------
  void SetFocus() override;
  void gsSetPrimHeader(int type, int, int, int layer, int pen, int linetype, double width, int, int) override;
  void gsSetLine(double x1, double y1, double x2, double y2) override;
  void gsSetArc(double startX, double startY, double centreX, double centreY, double endX, double endY, int direction,
                double, double) override;
  void gsSetFont(std::string_view font, int pen, double height, double angle, int style, int justification,
                 double widthFactor, double, double) override;
  void gsSetText(double x, double y, std::string_view text) override;
  void gsSetArrow(double x1, double y1, double x2, double y2, double length, double width, int style1, int style2,
                  int style3) override;
  int gsAddPrim() override;

  int gsGetPointFromUser(std::string_view prompt, double& x, double& y) override;
  void gsGetTextFromPromptBar(std::string_view prompt, std::string& text, int) override;
  void gsAllowBack(int on) override;
  int gsBackPressed() override;
  int gsGivesUp(std::string_view question) override;
  int gsReply(std::string_view question) override;
  int gsReply(std::string_view question, const AnswerNames& names) override;
  int gsSubMenu(std::string_view items) override;
  int gsEscapePressed() override;
  void gsSetPrompt(std::string_view text) override;
  void gsSetStatus(std::string_view text) override;
  void gsSetProgress(int done, int total, std::string_view text) override;
  int gsStopsAtProgress(int done, int total, std::string_view text) override;
  void gsCursorWait(int on) override;
  void gsSetCursorHold(int on) override;
  void gsSetRubberBand(int on) override;
  void gsSetSnapMode(int mode) override;
  void gsCursorSnapPoint(int on) override;
  void gsGetCurrCoord(double& x, double& y) override;
  void gsSetCurrCoord(double x, double y) override;
  int gsSetupPenDialog(std::string_view title, int& pen) override;

  int gsExecuteMacro(std::string_view text) override;
  int gsGetMacVar(std::string_view name, double& value) override;
  int gsGetMacStrVar(std::string_view name, char* buffer, int size) override;
  void gsSetMacStrVar(std::string_view name, std::string_view text) override;

  int gsAddLayer(std::string_view name) override;
  int gsGetLayerIndexFromName(std::string_view name) override;
  int gsGetLayerCount() override;
  int gsGetLayerDefIndex(int index, LayerDef& layer) override;
  int gsSetLayerDefIndex(int index, const LayerDef& layer) override;
  int gsGetCurrentLayer() override;
  std::string gsGetCurrentLayerName() override;
  void gsSetCurrentLayer(int index) override;
  void gsDeleteLayer(std::string_view name) override;
  void gsDeleteLayer(int index) override;
  void gsSetLayerVisibility(int index, int shown, int) override;
  int gsGetLayerLockedState() override;
  void gsSetLayerLockedState(int locked) override;

  int gsNearestPrim(int type, double x, double y) override;
  int gsGetLine(double& x1, double& y1, double& x2, double& y2) override;
  int gsGetArc(double& startX, double& startY, double& centreX, double& centreY, double& endX, double& endY,
               int& direction) override;
  int gsGetText(double& x, double& y, char* buffer, int size) override;
  int gsGetFont(FontDef& font) override;
  int gsGetPrimHeader(PrimHeader& header) override;
  int gsSelectGroup() override;
  int gsGetGroup() override;
  int gsGetListHandle(int type, int layer, int flag, double x1, double y1, double x2, double y2, int,
                      int flag2) override;
  int gsGetNextPrim(int handle) override;
  void gsFreeListHandle(int handle) override;
  int gsGetObject(std::string_view& parent, std::string_view& name) override;
  int gsCopyPrimHeader(CCadWindow& target) override;
  int gsCopyPrim(CCadWindow& target) override;

  void gsClearSelection() override;
  void gsClearWorkSpace() override;
  void gsSetViewDirty(int) override;
  void gsRefresh() override;
  void gsZoomAll() override;
  void gsZoomRect(double x1, double y1, double x2, double y2) override;
  void gsGetDrawingParms(DrawingParms& parms) override;
  void gsSetDrawingParms(const DrawingParms& parms) override;
  void gsStartPat(std::string_view name) override;
  void gsEndFunc() override;
  int gsGetCurrPen() override;
  unsigned gsGetPenColor(int pen) override;
  int gsGetDimDefStyle() override;
  void gsSetDimDefStyle(int style) override;
  void gsGetTextDefaultParams(TextDefaults& defaults) override;
  void gsSetDrawMode(int mode) override;
  void gsDisplayLine(double x1, double y1, double x2, double y2, int pen) override;
  void gsSetDisplayToCopy() override;
  void gsShowLegendBar(int shown) override;
  void gsCenterPaper(double x, double y) override;
  void gsFitPaper(double x1, double y1, double x2, double y2) override;
  int gsAutoPerim(double x, double y) override;
  void gsSetAutoperimPromptFlag(int on) override;

 private:
  // A scan over groups, or over primitives whose ids were found in a window or on a layer.
  struct Scan {
    int type = 0;
    int layer = -1;
    bool everywhere = true;
    std::vector<PrimitiveId> ids;  // unless everywhere
    size_t next = 0;               // into ids; else the id or group before the next one
    size_t end = 0;                // what is drawn after the scan began is not met
  };

  BoxAnswer ask(const MessageBox& box);
  void call(std::string_view name, std::initializer_list<CallArgument> arguments = {}) {
    if (services_.events != nullptr) { services_.events->called(name, arguments); }
  }
  void resetForCommand();
  void zoomTo(const Box& box);
  void setGeometry(Geometry geometry);
  template <class Kind>
  const Kind* currentAs() const;
  void deleteLayer(int index);
  bool inScan(const Scan& scan, const Primitive& primitive) const;
  int nextGroup();
  void goOnWithGroups(int handle);
  void makeCurrent(const Group& group);
  int nextPrimitive(Scan& scan);

  std::string name_;
  WindowServices services_;
  Drawing drawing_;
  Cursor cursor_;
  DrawingStyle style_;
  OpenGroup openGroup_;
  PrimitiveId lastDrawn_ = 0;
  TextDefaults textDefaults_;
  MacroState macroState_;
  std::function<void(const Box&)> zoom_;
  int dimensionStyle_ = 0;
  bool selectsNew_ = false;
  bool escaped_ = false;
  bool back_ = false;  // the last prompt for a text was left so
  bool undoBracket_ = false;
  bool inCommand_ = false;

  int newType_ = 0;           // the header given last
  bool newGeometry_ = false;  // given since then
  Primitive newPrimitive_;
  Text newFont_;             // gsSetFont's values
  PrimitiveId current_ = 0;  // what a scan or pick made current
  // The scan of groups under way, the newest group first: `left` groups stand before `at`, none having been
  // added or emptied since the revision. Its place is kept in its Scan while another scan is under way.
  struct GroupCursor {
    int handle = 0;
    const Group* at = nullptr;
    size_t left = 0;
    uint64_t revision = 0;
  };
  GroupCursor groupCursor_;
  const Group* currentGroup_ = nullptr;       // what the cursor met, as long as the drawing has not changed
  std::vector<std::unique_ptr<Scan>> scans_;  // handle - 1 is the index
  std::vector<Mark> marks_;
};

// The primitive type numbers of the view's calls.
int typeNumber(const Geometry& geometry);

}  // namespace brevan
