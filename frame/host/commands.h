#pragma once

#include <span>

// The commands that a module offers, as its export ardenixCommands(int* count) lists them: all that a host must know to
// show a command, to start with it and to help with it.

enum class CommandFamily { kMechanical, kArchitectural, kSurvey };

// What a host's settings hold when it is started for the first time.
struct FirstSetting {
  const char* section;
  const char* key;
  const char* value;
};

// A page of the manual that tells of commands.
struct ManualChapter {
  const char* file;   // "" where no page does
  const char* title;  // in the manual's contents
};

struct CommandRow {
  const char* name;  // of the export
  CommandFamily family;
  const char* caption;    // menu caption, "&" marking the mnemonic
  bool takesView;         // the export takes the CCadWindow* to work in; else it asks for the current view
  const char* icon;       // a file of the icons' folder, without its ending
  const char* help;       // the page that its dialog asks for; "" where it shows none
  ManualChapter chapter;  // what the manual says about it
  std::span<const FirstSetting> settings;  // those that it reads
};
