#!/usr/bin/env bash
# Takes pictures of the main window and of every dialog: make_desktop_pictures.sh BUILD FOLDER, with BUILD as in
# build/release. Below FOLDER: light and dark, each also at twice the pixels (light2, dark2). With a third argument it
# then writes the selection that docs/desktop.md shows there, in few colours.
set -euo pipefail
build=$1 folder=$2 selection=${3:-}
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)

mkdir -p "$folder"
{
  grep -v '^export' "$root/examples/bearing_cover/bearing_cover.scr"
  echo 'save "bearing_cover.drg"'
} >"$folder/bearing_cover.scr"
"$build/bin/brevan-batch" run "$folder/bearing_cover.scr" -o "$folder" >/dev/null

# pictures NAME [VARIABLE=VALUE...]
pictures() {
  local into="$folder/$1"
  shift
  mkdir -p "$into"
  env "$@" BREVAN_PICTURES="$into" BREVAN_PICTURED_DRAWING="$folder/bearing_cover.drg" \
    "$build/bin/desktop_tests" --gtest_filter='EveryDialog.*' --gtest_brief=1 2>/dev/null
}
pictures light
pictures dark BREVAN_DARK=1
pictures light2 QT_SCALE_FACTOR=2
pictures dark2 BREVAN_DARK=1 QT_SCALE_FACTOR=2

[ -n "$selection" ] || exit 0
# select SOURCE NAME: a palette of 64 colours is enough for a user interface.
select_picture() { convert "$folder/$1.png" -strip +dither -colors 64 "PNG8:$selection/$2.png"; }
select_picture light/MechDrawBolts desktop
select_picture dark/MechDrawNuts desktop_dark
select_picture light/MechDrawRivets-1 rivets
select_picture dark/MechDrawHoles-1 holes_dark
select_picture light/DisplayMechSetup-1 mechanical_setup
select_picture light/SG_DiagramEditor-1 survey_setup
select_picture dark/SG_DiagramEditor-3 survey_setup_dark
select_picture dark2/DrawingSettings-1 drawing_settings_twice
