#pragma once

#include <memory>

class QGuiApplication;

namespace brevan {

// What painting needs of Qt: an application, for its fonts. Where the program has one already, that one is
// used; else the first painting makes one that needs no display. A program without windows calls this from
// its main thread and pays for it when it first paints.
class RenderSession {
 public:
  // Throws HostFailure when the fonts that drawings are set in are not installed.
  static void require();

  RenderSession();
  ~RenderSession();
  RenderSession(const RenderSession&) = delete;
  RenderSession& operator=(const RenderSession&) = delete;

 private:
  std::unique_ptr<QGuiApplication> application_;
};

}  // namespace brevan
