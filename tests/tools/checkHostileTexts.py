"""Descriptions, names and labels that try to break out come out harmless in every format of kivoconfig, and soon.

    checkHostileTexts.py <project> <build directory>
"""
import html
import json
import os
import re
import subprocess
import sys
import tempfile

BUILD = sys.argv[2]
SECONDS = 60  # instrumented builds are slow, too

TEXTS = [
    "]]> <!-- --> --- -", "-->", "--", "<x y='z'/> &amp; &#65;", "\\fB bold \\n(.g", ".Sh NAME", "'br", ".", "-",
    "\x1b[31m red \x07 \x08\x7f", "\x9b31m", "\u202e right to left \u200f\u2066", "%s %n %d", "$(reboot) `reboot` ; |",
    "a\tb\nc\r\nd", "\u2028\u2029\ufeff", "Fl Ar Nm \" ' ` ^ ~", "\U0001f600 \u00fc", " ", "w" * 500000, "words " * 80000,
    "-" * 100000, "\\" * 100000, "(((.!?)))" * 1000,
]
# What does something instead of being seen.
CONTROLS = re.compile("[\x00-\x08\x0b-\x1f\x7f-\x9f\u061c\u200e\u200f\u2028-\u202e\u2066-\u2069]")


def attribute(text):
    """A text as an attribute: XML 1.1 carries controls as references."""
    return "".join(c if c.isalnum() or c in " -.!?()[]\\" else "&#%d;" % ord(c) for c in text)


def registry():
    parameters, references, values = "", "", ""
    for i, text in enumerate(TEXTS):
        texts = attribute(text)
        short = attribute(text[:1000])
        values += '<Value label="%s%d"/>' % (short, i)
        parameters += '<Parameter id="p%d" name="p%d%s" type="string" valueName="%s" default="%s" description="%s"/>' % (
            i, i, short, short, short, texts)
        references += '<ParameterRef id="p%d" optional="true"/>' % i
        references += '<Container id="c%d" name="c%d%s" description="%s" optional="true">%s</Container>' % (
            i, i, short, short, '<ParameterRef id="p%d" optional="true"/>' % i)
    parameters += '<Parameter id="labels" name="labels" type="enum" enumType="e" description="d" default="%s0"/>' % attribute(TEXTS[0])
    references += '<ParameterRef id="labels" optional="true"/>'
    return ('<?xml version="1.1" encoding="UTF-8"?><ConfigurationRegistry>'
            '<Enumerations><Enumeration id="e">%s</Enumeration></Enumerations><Parameters>%s</Parameters>'
            '<Specifications><Specification id="hostile" name="hostile" description="%s">%s</Specification>'
            '</Specifications></ConfigurationRegistry>') % (values, parameters, attribute(" ".join(TEXTS)), references)


def run(*command, status=0):
    done = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, timeout=SECONDS, check=False)
    if done.returncode != status:
        sys.exit("%s: status %d: %s" % (" ".join(command), done.returncode, (done.stdout + done.stderr)[:1000]))
    return done.stdout.decode("utf-8")


def kivoconfig(*arguments, status=0):
    text = run("kivoconfig", *arguments, status=status)
    found = CONTROLS.search(text)
    if found:
        sys.exit("kivoconfig %s prints the control %r" % (" ".join(arguments), found.group()))
    return text


def explain(schema):
    """Values, names and paths of users, in a file and as arguments."""
    attributes = "".join(' p%d="%s"' % (i, attribute(text)) for i, text in enumerate(TEXTS))
    unknown = "".join('<Parameter value="%s"/>' % attribute(text) for text in TEXTS)
    name = "a\x1b[31m\u202e%s\n.xml"
    with open(name, "w", encoding="utf-8") as file:
        file.write('<?xml version="1.1" encoding="UTF-8"?><hostile%s>%s</hostile>' % (attributes, unknown))
    inputs = ["--config", name, "--", *[text for text in TEXTS if len(text) < 100000], "-loadConfiguration", "\x1b[0m"]
    text = kivoconfig("explain", "hostile", *inputs, status=1)
    require("p9 = \\x1b[31m red \\x07 \\x08\\x7f\n" in text, "controls are shown as escapes")
    require(text.endswith(" warnings\n"), "the number of findings is the last line")
    findings = kivoconfig("check", "hostile", *inputs, status=1)
    require(text.endswith(findings), "explain and check have the same findings")
    with open("document", "w", encoding="utf-8") as file:
        file.write(kivoconfig("explain", "hostile", "--json", *inputs, status=1))
    run("jsonschema", "-i", "document", schema)
    with open("document", encoding="utf-8") as file:
        given = {setting["name"]: setting["values"][0]["text"] for setting in json.load(file)["settings"] if setting["values"]}
    for i, expected in enumerate(TEXTS):
        require(given["p%d" % i] == expected, "JSON gives text %d as it is: %r" % (i, given["p%d" % i][:100]))


def require(condition, what):
    if not condition:
        sys.exit("not true: " + what)


def main():
    os.environ.update(PATH=BUILD + "/tools/bin:" + BUILD + "/tests/tools:" + os.environ["PATH"], LC_ALL="C", KIVO_HOME=".")
    # The leak checker itself crashes where the module for XML 1.1 was unloaded. The other tests look for leaks.
    os.environ["ASAN_OPTIONS"] = os.environ.get("ASAN_OPTIONS", "") + ":detect_leaks=0"
    for name in ("KIVO_ETC_DIR", "KIVO_PLUGINS_DIR", "KIVO_CONFIG_DIR", "KIVO_MAIN_LOG"):
        os.environ.pop(name, None)
    with tempfile.TemporaryDirectory() as work:
        os.chdir(work)
        os.mkdir("etc")
        with open("etc/kivobase.crg", "w", encoding="utf-8") as file:
            file.write(registry())

        require(len(kivoconfig("list").splitlines()) == 1, "a specification is a line")
        require(kivoconfig("lint").endswith(" warnings\n"), "there are no errors")
        described = json.loads(kivoconfig("list", "--json"))["specifications"][0]["description"]
        require(described == " ".join(TEXTS), "JSON gives the description as it is")

        template = kivoconfig("template", "hostile")
        with open("template.xml", "w", encoding="utf-8") as file:
            file.write(template)
        require(max(map(len, template.splitlines())) < 7000, "only examples of values make long lines")
        require(kivoconfig("check", "hostile", "--config", "template.xml") == "", "the template has no fault")
        dump = ("dump", "hostile", "--config", "template.xml", "--all")
        with open("dump.xml", "w", encoding="utf-8") as file:
            file.write(kivoconfig(*dump, status=1))  # what no file can carry is left out
        require(kivoconfig("check", "hostile", "--config", "dump.xml") == "", "the dump has no fault")
        values = json.loads(kivoconfig(*dump, "--json"))["values"]
        require([values["p%d" % i] for i in range(len(TEXTS))] == [text[:1000] for text in TEXTS], "JSON carries all texts")
        elements = re.sub("<!--.*?-->", "", template, flags=re.DOTALL)
        require(elements.split() == ['<?xml', 'version="1.0"', 'encoding="UTF-8"?>', "<hostile>", "</hostile>"],
                "only comments stand in the document element")

        with open("schema.xsd", "w", encoding="utf-8") as file:
            file.write(kivoconfig("schema", "hostile"))
        run("xmllint", "--huge", "--noout", "--schema", "schema.xsd", "template.xml")

        with open("page", "w", encoding="utf-8") as file:
            file.write(kivoconfig("manual", "hostile"))
        run("mandoc", "-T", "lint", "page")
        page = html.unescape(run("mandoc", "-T", "html", "page"))
        for text in ("\\fB bold \\n(.g", ".Sh NAME", "'br", "<x y='z'/>", "\\x1b[31m red"):
            require(text in page, "the page shows " + text)

        explain(schema=sys.argv[1] + "/tools/kivoconfig/kivoconfig.schema.json")

        candidates = kivoconfig("complete", "hostile", "--", "-p").splitlines()
        require(all(re.fullmatch("-p[0-9]+[^\t]*(\t[^\t]{1,80})?", line) for line in candidates), "one candidate a line")
        kivoconfig("complete", "hostile", "--", "-labels", "")
        for shell in ("bash", "zsh"):
            kivoconfig("completion", shell, "tool", "hostile")


main()
