"""Prints the cells of a flat OpenDocument spreadsheet: row, column, bold, text as it is shown."""
import sys
import xml.etree.ElementTree as tree

OFFICE = "{urn:oasis:names:tc:opendocument:xmlns:office:1.0}"
TABLE = "{urn:oasis:names:tc:opendocument:xmlns:table:1.0}"
TEXT = "{urn:oasis:names:tc:opendocument:xmlns:text:1.0}"
STYLE = "{urn:oasis:names:tc:opendocument:xmlns:style:1.0}"
FO = "{urn:oasis:names:tc:opendocument:xmlns:xsl-fo-compatible:1.0}"


def is_bold(style):
    properties = style.find(STYLE + "text-properties")
    return properties is not None and properties.get(FO + "font-weight") == "bold"


sys.stdout.reconfigure(encoding="utf-8")
root = tree.parse(sys.argv[1]).getroot()
bold = {style.get(STYLE + "name") for style in root.iter(STYLE + "style") if is_bold(style)}
sheet = next(table for table in root.iter(TABLE + "table") if table.get(TABLE + "name") == "Logger")
row = 0
for line in sheet.iter(TABLE + "table-row"):
    column = 0
    for cell in line.findall(TABLE + "table-cell"):
        repeated = int(cell.get(TABLE + "number-columns-repeated", "1"))
        if cell.get(OFFICE + "value-type") is not None:
            text = "\n".join("".join(part.itertext()) for part in cell.findall(TEXT + "p"))
            for offset in range(repeated):
                is_header = int(cell.get(TABLE + "style-name") in bold)
                print(row, column + offset, is_header, text, sep="\t")
        column += repeated
    row += int(line.get(TABLE + "number-rows-repeated", "1"))
