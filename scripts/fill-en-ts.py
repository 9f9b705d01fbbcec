#!/usr/bin/env python3
"""Makes every entry of the English translation file its own source text.

The program's texts are written in English, so en_us.ts translates each text
to itself; run this after `cmake --build build --target update_translations`.
"""
import pathlib
import sys
import xml.etree.ElementTree as ET

path = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else
                    pathlib.Path(__file__).resolve().parent.parent / "resources/lang/en_us.ts")
tree = ET.parse(path)
for message in tree.getroot().iter("message"):
    translation = message.find("translation")
    translation.text = message.find("source").text
    translation.attrib.pop("type", None)
ET.indent(tree, space="    ")
with open(path, "wb") as f:
    f.write(b'<?xml version="1.0" encoding="utf-8"?>\n<!DOCTYPE TS>\n')
    tree.write(f, encoding="utf-8", xml_declaration=False)
    f.write(b"\n")
