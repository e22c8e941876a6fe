#pragma once

#include <stdexcept>

namespace brevan {

// A change that the drawing refuses; nothing of it was done.
class RefusedChange : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace brevan
