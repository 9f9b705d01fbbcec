#!/usr/bin/env bash
# make-icons.sh: renders the program's icons from their SVG sources into the
# 32x32 PNG files the program compiles in (Qt without its SVG plug-in reads
# only the PNG files). Needs ImageMagick's convert, and rsvg-convert (package
# librsvg2-bin), which convert hands the SVG files to.
#   resources/images/svg/<name>.svg -> resources/images/<name>.png
#   resources/ico/calvane.svg       -> resources/ico/calvane.png
set -euo pipefail
top=$(cd "$(dirname "$0")/.." && pwd)

render() {
    convert -background none -density 96 "$1" -resize 32x32 -strip "PNG32:$2"
}

for svg in "$top"/resources/images/svg/*.svg; do
    render "$svg" "$top/resources/images/$(basename "${svg%.svg}").png"
done
render "$top/resources/ico/calvane.svg" "$top/resources/ico/calvane.png"
