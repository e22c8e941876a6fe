#pragma once

// The commands that a module offers, as its export ardenixCommands(int* count) lists them.

enum class CommandFamily { kMechanical, kArchitectural, kSurvey };

struct CommandRow {
  const char* name;  // of the export
  CommandFamily family;
  const char* caption;  // menu caption, "&" marking the mnemonic
  bool takesView;       // the export takes the CCadWindow* to work in; else it asks for the current view
};
