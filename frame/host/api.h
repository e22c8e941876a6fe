#pragma once

// Marks what one shared library offers the other; everything else stays hidden.
#define BREVAN_API __attribute__((visibility("default")))
#define ARDENIX_EXPORT extern "C" __attribute__((visibility("default")))

// Text convention of every interface in this folder: one byte a character, Windows-1252.
// The host converts at its edges (screen, DXF, JSON, scripts and drawing files are UTF-8).
