#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

#include "frame/host/api.h"
#include "frame/host/window.h"

class CCadWindow;
struct AllPaths;

// A failure that the host reports to the user with this text, once; the running command ends and the
// drawing is as before it.
class BREVAN_API HostFailure : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
  ~HostFailure() override;
};

struct PNT_2D_record {
  double x = 0.0;
  double y = 0.0;
};

// ---- Host ----------------------------------------------------------------------------------------

// The window in which the user is working, never null while a command runs.
BREVAN_API CCadWindow* cadGetCurrentView();
BREVAN_API void cadSetWaitCursor(bool on);
BREVAN_API AllPaths* GetAllPaths();

// ---- Fields of a separated record, numbered from 1 -----------------------------------------------

// Copies the field, cut to size - 1 bytes, with a closing NUL; a missing field gives the default.
// Returns the length copied. With the separator blank, runs of blanks separate once.
BREVAN_API int coreGetField(std::string_view record, std::string_view fallback, char* buffer, int size, int index,
                            char separator);
// The number at the field's start (what follows it is ignored: "10.0" read as an integer is 10); a
// missing field or one without a number gives the default.
BREVAN_API double coreGetFieldDouble(std::string_view record, double fallback, int index, char separator);
BREVAN_API int coreGetFieldInt(std::string_view record, int fallback, int index, char separator);

// ---- Survey geometry: points given y first, directions in radians clockwise from the +y axis -------

// Distance and direction (0 to below 2 pi) from point 1 to point 2; equal points give 0 and 0.
BREVAN_API void coreSurvJoin(double y1, double x1, double y2, double x2, double& distance, double& direction);
// The point at a direction and distance from (y, x).
BREVAN_API void coreSurvPolar(double y, double x, double direction, double distance, double& y2, double& x2);
// The crossing of the endless lines 1-2 and 3-4; each flag is 1 when the crossing lies on that
// segment, else 0. Parallel lines give (0, 0) and both flags 0.
BREVAN_API PNT_2D_record coreIntersectionLines(double x1, double y1, double x2, double y2, double x3, double y3,
                                               double x4, double y4, int& flag1, int& flag2);
// The crossing of two segments; returns non-zero when there is one.
BREVAN_API int coreIntOnLines(double x1, double y1, double x2, double y2, double x3, double y3, double x4, double y4,
                              double& x, double& y);
// Degrees written d.mmss to radians, and back (rounded to a hundredth of a second, never 60).
BREVAN_API double coreDmsRad(double degreesMinutesSeconds);
BREVAN_API double coreRadDms(double radians);
// Rounds half away from zero to the given number of decimals.
BREVAN_API double coreDoubleRound(double value, int decimals);

// ---- Files: both path separators are taken, names match without regard to case ---------------------

BREVAN_API int coreFileExist(std::string_view path);
BREVAN_API int coreFolderExist(std::string_view path);
BREVAN_API std::string coreChangeFileExt(std::string_view path, std::string_view extension);
// Replaces name and extension, keeps the folder.
BREVAN_API std::string coreChangeFileName(std::string_view path, std::string_view name, std::string_view extension);
// Shortens a path for display to at most length characters, keeping its start and its file name.
BREVAN_API std::string coreAbbreviateFileName(std::string_view path, int length);
// The data folder, ending in a separator.
BREVAN_API std::string coreGetDefaultPath();
// Non-zero when done.
BREVAN_API int coreFileCopy(std::string_view from, std::string_view to);
BREVAN_API int coreFileDelete(std::string_view path);
// Text files: mode "r" or "w"; returns a handle above 0, or 0 when the file cannot be opened. What is
// written reaches the disk whole when the handle is closed.
BREVAN_API int coreFileOpen(std::string_view path, std::string_view mode);
// Reads the next line without its line end; returns 0 at the end of the file.
BREVAN_API int coreFileTxtRead(int file, std::string& line);
// Writes a line and its line end; returns 0 when it could not.
BREVAN_API int coreFileTxtWrite(int file, std::string_view line);
BREVAN_API int coreFileClose(int file);
// Asks the user for a folder, starting at the given one; returns non-zero when one was chosen.
BREVAN_API int coreGetFolder(CWnd* owner, std::string_view title, std::string_view start, std::string& folder);
// Asks for a file to open (or to save). The filter is pairs of description and pattern with "|"
// between and "||" at the end; the number of the one chosen, from 1, is handed back where it is asked for. Returns
// non-zero when a file was chosen.
BREVAN_API int coreChooseFile(CWnd* owner, bool open, std::string_view filter, std::string_view defaultExtension,
                              std::string_view initialName, std::string& path, int* chosenFilter = nullptr);

// ---- Text and settings ------------------------------------------------------------------------------

// Removes leading and trailing blanks and tabs.
BREVAN_API void coreTrimStr(std::string& text);
// Copies at most size - 1 bytes and closes with NUL.
BREVAN_API void coreStrncpy(char* target, std::string_view source, int size);
// Non-zero when the whole text, blanks around it aside, is one finite number.
BREVAN_API int coreIsNumeric(std::string_view text);
// An integer of the host's settings.
BREVAN_API int coreGetDefaultInt(std::string_view section, std::string_view key, int fallback);

// ---- Messages: each a box owned by the given window ---------------------------------------------------

BREVAN_API void ErrorMessage(std::string_view text, CWnd* owner);
BREVAN_API void InfoMessage(std::string_view text, CWnd* owner);
// A yes/no question; non-zero is yes.
BREVAN_API int ConfirmMessage(std::string_view text, CWnd* owner, int flag);

enum class BoxIcon { kWarning, kError, kInformation, kQuestion };
enum class BoxButtons { kOk, kYesNo, kYesNoCancel };
enum class BoxAnswer { kOk, kYes, kNo, kCancel };

// A message box with its own caption; an empty caption stands for the application's title.
BREVAN_API BoxAnswer coreMessageBox(CWnd* owner, std::string_view text, std::string_view caption, BoxIcon icon,
                                    BoxButtons buttons);

// A menu at the cursor; items separated by commas, "&" marking the mnemonic. Returns the item chosen from
// 1, 0 for none.
BREVAN_API int corePopupMenu(CWnd* owner, std::string_view items);

// ---- The platform's help viewer -------------------------------------------------------------------------

// The path of the host's own help file; the compiled help file lies beside it.
BREVAN_API std::string coreHelpFilePath();
// The default value of a key of the platform's registry of servers ("" where there is none).
BREVAN_API std::string coreRegisteredServer(std::string_view key);
