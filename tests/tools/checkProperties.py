"""What holds for any specification, tried with random ones:

- check finds nothing in a template, and with every comment opened nothing but exclusive choices;
- the schema accepts every values file in which check finds nothing;
- what a tool gets, it gets again from a dump of it, which is its only file, with or without defaults as values.

    checkProperties.py <project> <build directory> [<seed>]
"""
import json
import os
import random
import re
import subprocess
import sys
import tempfile

BUILD = sys.argv[2]
RANDOM = random.Random(int(sys.argv[3]) if len(sys.argv) > 3 else 1)
SPECIFICATIONS = 12
FILES = 25  # of each specification
STARTS = 8  # of a tool of each specification

# Texts of each type, and others.
NUMBERS = ["", "5", "+5", " 5", "5 ", "-0", "007", "0" * 40 + "5", "-2147483648", "2147483647", "2147483648", "4294967295",
           "4294967296", "-1", "0x10", "1e5", ".5", "5.", "-.5e-3", "nan", "-inf", "infinity", "0x1.8p3", "9223372036854775808",
           "99999999999999999999", "1,5", "abc", "--5"]
OIDS = ["1-2-3-4", "#1-2-3-4", "1-2-3-4 ", "1--2-3-4", "#+1- 2-3-4", "1-2-3", "1-2-3-4-5", "1-2-3-4x", "#", "a-b-c-d"]
BOOLS = ["true", "False", "TRUE", "1", "0", "", " 1", "yes", "tru"]
SIZES = ["0", "64", "64k", "1.5 GB", "2 gib", "0.5Kb", "18446744073709551615", "1.5", "1  k", "k", "64p", " 5", "1.5kk"]
DURATIONS = ["0", "000", "1d12h", "36h", "250ms", "1m5ms", "5", "1h1d", "1H", "1.5s", "ms", "1s1s", " 1s"]
STRINGS = ["", "text", "a & b <c>", "--", "]]>", "\u00e4\u4e2d", "tab\tand\nline", "&#65;"]
LABELS = ["none", "very good", "--", "<&>\"'", "a\tb", "\u00fc"]
TYPES = {"int": ("0", NUMBERS), "uint": ("7", NUMBERS), "double": ("1.5", NUMBERS), "bool": ("true", BOOLS),
         "oid": ("0-0-0-0", OIDS), "string": ("a--b", STRINGS), "enum": ("none", LABELS), "long": ("-5", NUMBERS),
         "ulong": ("18446744073709551615", NUMBERS), "size": ("64k", SIZES), "duration": ("1d12h", DURATIONS)}

# Bounds, which the default is within.
BOUNDS = {"int": ("-1", "5"), "uint": ("2", "2147483647"), "double": ("-.5e-3", "5"), "long": ("-5", "2147483648"),
          "ulong": ("+5", "18446744073709551615"), "size": ("64", "1.5 GB"), "duration": ("36h", "40d")}

# Values within them.
GOOD = {"int": ["0", "5", " 5", "-0"], "uint": ["7", "+5", " 5"], "double": ["1.5", "5.", ".5", "0x1.8p1"],
        "bool": ["true", "False", "1", "0"], "oid": ["1-2-3-4", "#1-2-3-4"], "string": STRINGS, "enum": LABELS,
        "long": ["-5", "5"], "ulong": ["5", "007"], "size": ["64k", "1.5 GB", "64"], "duration": ["36h", "1d12h", "40d"]}


def escaped(text):
    return "".join("&#%d;" % ord(c) if c in "&<>\"'\t\n" else c for c in text)


class Specification:
    """A random description."""

    def __init__(self, number):
        self.id = "s%d" % number
        self.count = 0
        self.parameters = ""
        self.root = self.container(self.id, 3)

    def name(self):
        self.count += 1
        return "%s_%d" % (self.id, self.count)

    def parameter(self, is_direct):
        kind, name = RANDOM.choice(list(TYPES)), self.name()
        bounds = zip(("min", "max"), BOUNDS.get(kind, ()))
        attributes = ' sensitive="1"' if rarely() else ""
        attributes += ' enumType="labels"' if kind == "enum" else "".join(
            ' %s="%s"' % bound for bound in bounds if RANDOM.random() < 0.4)
        self.parameters += '<Parameter id="%s" name="%s" description="d" type="%s"%s default="%s"/>' % (
            name, name, kind, attributes, TYPES[kind][0])
        manner = RANDOM.choice(('optional="1"', 'optional="1"', 'optional="1"', 'optional="1" hidden="1"', 'optional="0"'))
        reference = '<ParameterRef id="%s" %s unbounded="%s"/>' % (name, manner, RANDOM.choice(("true", "false")))
        return {"name": name, "type": kind, "isDirect": is_direct, "xml": reference, "isRequired": "optional=\"0" in manner}

    def choice(self):
        parts = [self.parameter(False) for _ in range(RANDOM.randint(2, 3))]
        xml = '<MutuallyExclusive id="%s" name="c" description="d" optional="%s">%s</MutuallyExclusive>' % (
            self.name(), RANDOM.choice(("true", "false")), "".join(part["xml"] for part in parts))
        return parts, xml

    def container(self, name, depth):
        settings, sections, xml = [], [], ""
        for _ in range(RANDOM.randint(1, 6)):
            kind = RANDOM.random()
            if kind < 0.6:
                settings.append(self.parameter(True))
                xml += settings[-1]["xml"]
            elif kind < 0.8:
                parts, text = self.choice()
                settings += parts
                xml += text
            elif depth > 0:
                sections.append(self.container(self.name(), depth - 1))
                sections[-1]["isUnbounded"] = RANDOM.random() < 0.5
                xml += '<Container id="{name}" name="{name}" description="d" optional="{0}" unbounded="{isUnbounded}">{xml}</Container>'.format(
                    RANDOM.choice(("true", "true", "false")), **sections[-1])
        return {"name": name, "settings": settings, "sections": sections, "xml": xml, "isUnbounded": False}

    def declaration(self):
        return '<Specification id="{0}" name="{0}" description="d" optional="{1}">{2}</Specification>'.format(
            self.id, RANDOM.choice(("true", "false")), self.root["xml"])


def rarely():
    return RANDOM.random() < 0.1


def value_of(setting):
    kind = setting["type"]
    return escaped(RANDOM.choice(STRINGS + NUMBERS[:9] if RANDOM.random() < 0.02 and kind == "string" else TYPES[kind][1]))


def values(section):
    """An element that gives some of a section's settings, rarely in a wrong way."""
    attributes, elements = "", []
    for setting in section["settings"]:
        name = setting["name"] if RANDOM.random() > 0.02 else "unknown"
        if RANDOM.random() < 0.2 and name + "=" not in attributes:
            attributes += ' %s="%s"' % (name, value_of(setting))
        elif setting["isDirect"] and RANDOM.random() < 0.2:
            ignored = RANDOM.choice(("", "", "", ' other="1"'))
            elements += ['<%s%s value="%s">%s</%s>' % (name, ignored, value_of(setting), ignored and "<x/>", name)] * RANDOM.choice((1, 1, 1, 2))
    elements += [values(inner) for inner in section["sections"] if RANDOM.random() < 0.5]
    RANDOM.shuffle(elements)
    text = RANDOM.choice(("", " text ", "<!-- comment -->"))
    return "<%s%s>%s</%s>" % (section["name"], attributes, text.join([""] + elements + [""]), section["name"])


def given(section):
    """An element that gives some of a section's settings, and settings of sections inside in wrong places."""
    attributes, elements = "", []
    inside = [setting for inner in section["sections"] for setting in all_settings(inner)]
    for setting in section["settings"] + ([RANDOM.choice(inside)] if inside and rarely() else []):
        count = RANDOM.choice((0, 0, 1, 2) if setting["isDirect"] else (0, 0, 0, 0, 0, 1))
        texts = [escaped(RANDOM.choice(GOOD[setting["type"]])) for _ in range(max(count, setting["isRequired"]))]
        if texts and setting["isDirect"] and setting in section["settings"] and RANDOM.random() < 0.5:
            elements += ['<%s value="%s"/>' % (setting["name"], text) for text in texts]
        elif texts:
            attributes += ' %s="%s"' % (setting["name"], texts[0])
    for inner in section["sections"]:
        elements += [given(inner) for _ in range(RANDOM.choice((0, 0, 1, 3 if inner["isUnbounded"] else 1)))]
    return "<%s%s>%s</%s>" % (section["name"], attributes, "".join(elements), section["name"])


def all_settings(section):
    return section["settings"] + [setting for inner in section["sections"] for setting in all_settings(inner)]


def arguments_for(specification):
    words = []
    for setting in RANDOM.sample(all_settings(specification.root), 1):
        words += ["-" + setting["name"]]
        if setting["type"] != "bool" or rarely():
            words += [RANDOM.choice(GOOD[setting["type"]])]
    return words + (["-loadConfiguration", "named.xml"] if RANDOM.random() < 0.3 else [])


def run(*command):
    done = subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, timeout=120, check=False)
    return done.stdout.decode("utf-8"), done.stderr.decode("utf-8")


def findings(specification, file):
    """The rules of what check finds in a file."""
    report = run("kivoconfig", "check", specification, "--no-machine", "--config", file, "--json")[0]
    return {finding["rule"] for finding in json.loads(report)["findings"]}


def opened(template):
    """A template with all settings taken out of their comments."""
    depth_of, lines = [], []
    for line in template.splitlines():
        attribute = re.fullmatch(" *<!-- in the start tag: (.*) -->", line)
        if attribute:
            lines[depth_of[-1]] = lines[depth_of[-1]][:-1] + " " + attribute.group(1) + ">"
            continue
        line = re.sub("^( *)<!-- (<.*>) -->$", r"\1\2", line)
        if re.fullmatch(" *<[a-z0-9_]+>", line):
            depth_of.append(len(lines))
        elif re.fullmatch(" *</[a-z0-9_]+>", line):
            depth_of.pop()
        lines.append(line)
    return "\n".join(lines)


def write(path, text):
    with open(path, "w", encoding="utf-8") as file:
        file.write(text)
    return path


def check_template(name):
    template = run("kivoconfig", "template", name)[0]
    files = [write("template.xml", template), write("opened.xml", opened(template))]
    found = [findings(name, file) for file in files]
    if found[0] or not found[1] <= {"exclusive-settings"} or "<!-- <" in opened(template):
        sys.exit("the template of %s: %s: %s" % (name, found, opened(template)))
    return files


def check_schema(specification, files):
    schema = write("schema.xsd", run("kivoconfig", "schema", specification.id)[0])
    files = files + [write("values%d.xml" % i, values(specification.root)) for i in range(FILES)]
    faultless = [file for file in files if not findings(specification.id, file)]
    verdicts = run("xmllint", "--noout", "--schema", schema, *files)[1]
    accepted = set(re.findall("^(.*) validates$", verdicts, re.MULTILINE))
    for file in faultless:
        if file not in accepted:
            sys.exit("the schema of %s refuses %s: %s" % (specification.id, open(file, encoding="utf-8").read(), verdicts))
    return len(accepted), len(faultless), len(files)


def requested(name, machine, file, *arguments):
    """What a tool gets; None if it gets faults."""
    done = subprocess.run(("request-values", name, machine, file) + arguments, stdin=subprocess.DEVNULL,
                          capture_output=True, timeout=120, check=False)
    return sorted(done.stdout.split(b"\0")) if done.returncode == 0 else None


def check_dump(specification):
    """@return whether the tool gets values that a file can carry"""
    name = specification.id
    for file in ("config/machine.config", "application.xml", "named.xml"):
        write(file, given(specification.root) if RANDOM.random() < 0.7 else "<%s/>" % name)
    arguments = arguments_for(specification)
    expected = requested(name, "1", "application.xml", *arguments)
    if expected is None:
        return False
    inputs = ("--secrets", "--machine", "--config", "application.xml", "--", *arguments)
    dumped, complaints = run("kivoconfig", "dump", name, *inputs)
    if complaints:
        if not re.search("it has (several texts|no text)", complaints):
            sys.exit("the dump of %s: %s" % (name, complaints))
        return False
    write("dumped.xml", dumped)
    write("all.xml", run("kivoconfig", "dump", name, "--all", *inputs)[0])
    again = [json.loads(run("kivoconfig", "dump", name, "--json", *each)[0])["values"] for each in (
        inputs, ("--secrets", "--no-machine", "--config", "dumped.xml", "--"))]
    if requested(name, "0", "dumped.xml") != expected or again[0] != again[1]:
        sys.exit("the dump of %s: %s, %s: %s" % (name, arguments, expected, dumped))
    if requested(name, "0", "all.xml") != expected:
        sys.exit("the whole dump of %s: %s, %s: %s" % (name, arguments, expected, open("all.xml", encoding="utf-8").read()))
    return True


def main():
    os.environ.update(PATH=BUILD + "/tools/bin:" + BUILD + "/tests/tools:" + os.environ["PATH"], LC_ALL="C", KIVO_HOME=".")
    for name in ("KIVO_ETC_DIR", "KIVO_PLUGINS_DIR", "KIVO_CONFIG_DIR", "KIVO_MAIN_LOG"):
        os.environ.pop(name, None)
    os.umask(0o077)  # check warns of secrets that others can read
    with tempfile.TemporaryDirectory() as work:
        os.chdir(work)
        os.mkdir("etc")
        os.mkdir("config")
        specifications = [Specification(i) for i in range(SPECIFICATIONS)]
        labels = "".join('<Value label="%s"/>' % escaped(label) for label in LABELS)
        write("etc/kivobase.crg", '<?xml version="1.0" encoding="UTF-8"?><ConfigurationRegistry><Enumerations>'
              '<Enumeration id="labels">%s</Enumeration></Enumerations><Parameters>%s</Parameters><Specifications>%s'
              '</Specifications></ConfigurationRegistry>' % (
                  labels, "".join(each.parameters for each in specifications),
                  "".join(each.declaration() for each in specifications)))
        counts = [check_schema(each, check_template(each.id)) for each in specifications]
        accepted, faultless, total = map(sum, zip(*counts))
        print("%d files; the schemas accept %d, check %d" % (total, accepted, faultless))
        dumps = sum(check_dump(each) for each in specifications for _ in range(STARTS))
        print("%d of %d starts of a tool were repeated from a dump" % (dumps, len(specifications) * STARTS))
        if dumps < len(specifications):
            sys.exit("too few starts have values")
        if not 0 < faultless <= accepted < total:
            sys.exit("the files are all alike")


main()
