#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "frame/host/window.h"

class CCadWindow;
namespace dialog {
class Dialog;
}

// The host's main window: parent of every dialog and toolset object.
class CMDIFrameWnd : public CWnd {
 public:
  // The user message that returns a new drawing view.
  static constexpr unsigned kNewDrawingView = 1055;

  // Shows a dialog until it is closed. Returns true when it was closed with OK, false for Cancel, the
  // window's cross and Escape.
  virtual bool RunDialog(dialog::Dialog& dialog, CWnd* parent) = 0;

  // Closes a drawing view that the running command opened; it is gone afterwards.
  virtual void closeDrawingView(CCadWindow& view) = 0;

  // kNewDrawingView: opens a drawing window and returns its view; any other message returns null.
  virtual CCadWindow* SendUserMessage(unsigned message) = 0;

  // A view of an empty drawing that nobody sees and on which nobody is asked, for trying out what a part looks like.
  virtual std::unique_ptr<CCadWindow> makeUnseenView() = 0;
};

// A tree of folders and files in the host's side bar.
class COXShellFolderTree : public CWnd {
 public:
  // Hears of an item that the user selected, or that is selected no longer: its full path.
  using Selection = std::function<void(const std::string& path, bool selected)>;

  virtual void SetShowDesktopItem(bool shown) = 0;
  virtual void SetShowFiles(bool shown) = 0;
  // The ending of the files shown, in any case: "DRG".
  virtual void SetFilter(std::string_view extension) = 0;
  // Shows what lies in a folder, read afresh.
  virtual void InitializeTree(std::string_view folder) = 0;
  virtual void OpenFolder(std::string_view folder) = 0;
  // The path of the item that was selected last.
  [[nodiscard]] virtual std::string GetFullPath() const = 0;
  // Runs as a step of undo of its own, after a command that was asking has ended. Null: nobody listens.
  virtual void OnSelection(Selection selection) = 0;
};

// The host's side bar; the symbol library browser puts its group there.
class COXShortcutBar : public CWnd {
 public:
  // Makes a folder tree with a sunken edge. It belongs to the bar and to whoever asked: neither knows who goes first.
  virtual std::shared_ptr<COXShellFolderTree> CreateFolderTree(int childId) = 0;
  // Shows the child in a group of its own; returns the group's index. In the caption the key of a picture may stand
  // before a backslash.
  virtual int InsertGroup(const char* caption, COXShellFolderTree& child) = 0;
  virtual void SetGroupMargin(int group, int pixels) = 0;
  virtual void ExpandGroup(int group) = 0;
  virtual void RedrawBar() = 0;
};
