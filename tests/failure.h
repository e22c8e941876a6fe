#pragma once

#include <exception>
#include <string>
#include <utility>

// Why something failed, "" where it did not.
template <class Act>
std::string failureOf(Act&& act) {
  try {
    std::forward<Act>(act)();
  } catch (const std::exception& failure) { return failure.what(); }
  return "";
}
