"""Writes the same cells as xlwt_sample.py as a flat OpenDocument spreadsheet."""
import sys

NAMES = " ".join(
    'xmlns:%s="urn:oasis:names:tc:opendocument:xmlns:%s"' % (short, name)
    for short, name in (
        ("office", "office:1.0"),
        ("table", "table:1.0"),
        ("text", "text:1.0"),
        ("style", "style:1.0"),
        ("number", "datastyle:1.0"),
        ("of", "of:1.2"),
    )
)
STYLES = """<office:automatic-styles>
<number:time-style style:name="N1"><number:hours/><number:text>:</number:text><number:minutes
number:style="long"/><number:text>:</number:text><number:seconds number:style="long"/></number:time-style>
<number:date-style style:name="N2"><number:year number:style="long"/><number:text>-</number:text><number:month
number:style="long"/><number:text>-</number:text><number:day number:style="long"/></number:date-style>
<number:boolean-style style:name="N3"><number:boolean/></number:boolean-style>
<style:style style:name="boolean" style:family="table-cell" style:data-style-name="N3"/>
<style:style style:name="time" style:family="table-cell" style:data-style-name="N1"/>
<style:style style:name="date" style:family="table-cell" style:data-style-name="N2"/>
</office:automatic-styles>"""


def cell(kind, value="", text="", style="", formula=""):
    attributes = ""
    if style:
        attributes += ' table:style-name="%s"' % style
    if formula:
        attributes += ' table:formula="of:=%s"' % formula.replace('"', "&quot;")
    if kind:
        attributes += ' office:value-type="%s"' % kind
    if value:
        name = {"float": "value"}.get(kind, kind + "-value")
        attributes += ' office:%s="%s"' % (name, value)
    return "<table:table-cell%s><text:p>%s</text:p></table:table-cell>" % (attributes, text)


def text(value):
    return cell("string", text=value)


def number(value, formula=""):
    return cell("float", value, formula=formula)


NOTHING = "<table:table-cell/>"
ROWS = (
    (text("R/No"), text("Time"), text("Reading"), text("Remarks")),
    (number("12"), cell("time", "PT12H34M56S", style="time"), number("-1.5"), text("한글 시험")),
    (number("13"), text("1:2:3"), number("13", "[.A2]+1"), cell("date", "2023-03-15", style="date")),
    (number("14.5"), number("0.25"), cell("boolean", "true", style="boolean"), cell("float", "0", formula="1/0")),
    (number("16"), text("--EOD---"), cell("string", formula='CONCATENATE("a";"b")'), text("가나다" * 6000)),
    (text("17"), NOTHING, number("0.25"), text("x" * 30000)),
    (NOTHING,),
    (text("behind an empty row"),),
)
with open(sys.argv[1], "w", encoding="utf-8") as file:
    file.write('<?xml version="1.0" encoding="UTF-8"?>\n<office:document %s office:version="1.2" ' % NAMES)
    file.write('office:mimetype="application/vnd.oasis.opendocument.spreadsheet">' + STYLES)
    file.write('<office:body><office:spreadsheet><table:table table:name="표">')
    for row in ROWS:
        file.write("<table:table-row>%s</table:table-row>" % "".join(row))
    file.write("</table:table></office:spreadsheet></office:body></office:document>\n")
