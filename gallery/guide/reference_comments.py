#!/usr/bin/env python3
"""Writes a C++ source with what the public headers say of each name: its declaration, its header and the first sentence
of its comment, as Doxygen reads them by docs/Doxyfile.

Usage: reference_comments.py <doxygen> <top of the tree> <folder for Doxygen's XML> <the source to write>
"""

import pathlib
import re
import shutil
import subprocess
import sys
import xml.etree.ElementTree as ElementTree

# The last two for what classes of the library override of theirs.
FOLDERS = ("tokens", "themes", "typography", "icons", "infrastructure", "object_interface", "platform/object.h",
           "platform/views")

# Behind a full stop, and before what may begin a sentence.
SENTENCE_END = re.compile(r"(?<=[.!?])(?:\s+)(?=[A-Z0-9`“\"(])")
SPECIFIERS = r"^(?:(?:static|virtual|inline|explicit|constexpr|consteval|\[\[\w+\]\])(?:\s+|$))+"
ONLY_CODE = re.compile(r"`[^`]*`[.:]?")


def run_doxygen(doxygen, root, folder):
    settings = (root / "docs/Doxyfile").read_text(encoding="utf-8") + f"""
OUTPUT_DIRECTORY = "{folder}"
GENERATE_HTML = NO
GENERATE_XML = YES
XML_OUTPUT = .
XML_PROGRAMLISTING = NO
INPUT = {" ".join("brisel/" + folder for folder in FOLDERS)}
WARNINGS = NO
WARN_AS_ERROR = NO
"""
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    result = subprocess.run([doxygen, "-"], cwd=root, input=settings, text=True, capture_output=True)
    if result.returncode != 0:
        sys.exit(f"reference_comments.py: {doxygen} failed:\n{result.stderr}")


def text_of(element):
    """The element's text, code in backticks."""
    parts = [element.text or ""]
    for child in element:
        if child.tag in {"programlisting", "preformatted", "verbatim"}:
            continue
        inner = text_of(child)
        parts += [f"`{inner}`" if child.tag == "computeroutput" else inner, child.tail or ""]
    return "".join(parts)


def first_sentence(node):
    """A comment may open with the name that it is known by elsewhere: what is said of it belongs to the sentence."""
    paragraphs = [paragraph for tag in ("briefdescription", "detaileddescription")
                  for paragraph in node.findall(f"{tag}/para")]
    text = " ".join(" ".join(text_of(paragraph) for paragraph in paragraphs[:2]).split())
    first, *others = SENTENCE_END.split(text, maxsplit=2)
    sentence = f"{first} {others[0]}" if others and ONLY_CODE.fullmatch(first) else first
    return sentence[:1].upper() + sentence[1:]


def tidy(code):
    """Doxygen sets blanks before & and *, none behind them, and some within angle brackets. Namespaces of ours go without
    saying."""
    code = re.sub(r"\s+", " ", code).strip()
    code = re.sub(r"\s*([&*]+)", r"\1", code)
    code = re.sub(r"([&*])(?=\w)", r"\1 ", code)
    code = re.sub(r"<\s+", "<", re.sub(r"\s+>", ">", code))
    return re.sub(r"\b(?:Brisel::)?(?:Platform::)?(?=[A-Za-z])", "", code)


def code_of(node, tag):
    element = node.find(tag)
    return "" if element is None else tidy("".join(element.itertext()))


def declaration(member):
    """What follows the name: "(double fontSize) const → TypeStyle"."""
    kind = member.get("kind")
    if kind == "function":
        arguments = re.sub(r"(?<=\w)=(?!default|0$)", " = ", code_of(member, "argsstring"))
        arguments = re.sub(r"\s*(?:=0|=default|override|final|noexcept)(?=[^()]*$)", "", arguments)
        returns = re.sub(SPECIFIERS, "", code_of(member, "type"))
        static = " static" if member.get("static") == "yes" and member.find("qualifiedname").text.count("::") else ""
        return arguments + static + (f" → {returns}" if returns not in {"", "void"} else "")
    if kind == "enum":
        return "enumeration"
    if kind == "typedef":
        return "type"
    return ": " + re.sub(SPECIFIERS, "", code_of(member, "type"))


def argument_types(member):
    """The types of a function's parameters, as reference_names.cc writes those of a signature."""
    types = [code_of(parameter, "type") for parameter in member.findall("param")]
    return ",".join(re.sub(r"\s|\bconst\b|\b\w+::", "", kind) for kind in types if kind != "void")


class Comments:
    def __init__(self, root, folder):
        self.root, self.folder = root, folder
        self.rows, self.members, self.bases = {}, {}, {}
        self.names, self.aliases = {}, []

    def read(self):
        index = ElementTree.parse(self.folder / "index.xml").getroot()
        for compound in index.findall("compound"):
            if compound.get("kind") in {"class", "struct", "namespace", "file", "union"}:
                path = self.folder / f"{compound.get('refid')}.xml"
                self.read_compound(ElementTree.parse(path).getroot().find("compounddef"))
        for alias, target in self.aliases:
            self.repeat(self.names[target], alias)
        for name in list(self.bases):
            self.inherit(name, name)
        return [row for name in sorted(self.rows) for row in dict.fromkeys(self.rows[name])
                if not name.startswith("Brisel::Platform")]

    def read_compound(self, compound):
        kind, name = compound.get("kind"), compound.findtext("compoundname")
        self.names[compound.get("id")] = name
        if kind in {"class", "struct"}:
            self.add(name, "", kind, compound)
            self.bases[name] = [base.text.split("<")[0].strip() for base in compound.findall("basecompoundref")
                                if base.get("prot") == "public"]
        for member in compound.iter("memberdef"):
            if member.get("prot") == "public":
                self.read_member(member)

    def read_member(self, member):
        kind = member.get("kind")
        if kind not in {"function", "variable", "typedef", "enum"}:
            return
        name = member.findtext("qualifiedname") or member.findtext("name")
        if re.search(r"(?:^|::)(?:~|operator\b)", name):
            return
        self.add(name, argument_types(member), declaration(member), member)
        if kind == "enum":
            scope = name.rpartition("::")[0]
            for value in member.findall("enumvalue"):
                shown = "enumerator"
                for owner in {name, *(() if member.get("strong") == "yes" else {scope})}:
                    self.add("::".join(filter(None, (owner, value.findtext("name")))), "", shown, value, member)
        template = member.find("type/ref[@kindref='compound']")
        if kind == "typedef" and template is not None and (template.tail or "").lstrip().startswith("<"):
            self.aliases.append((name, template.get("refid")))

    def add(self, name, arguments, shown, node, place=None):
        location = (node if place is None else place).find("location")
        header = pathlib.Path((location.get("declfile") or location.get("file")))
        if header.is_absolute():
            header = header.relative_to(self.root)
        row = (name, arguments, shown, header.as_posix(), first_sentence(node))
        self.rows.setdefault(name, []).append(row)
        self.members.setdefault(name.rpartition("::")[0], []).append(row)

    def repeat(self, scope, alias):
        """The members of a class once more under another name; an override without a sentence takes theirs."""
        own = {name for name in self.rows if name.startswith(f"{alias}::")}
        for row in list(self.members.get(scope, ())):
            name = f"{alias}::{row[0].rpartition('::')[2]}"
            if row[0] == f"{scope}::{scope.rpartition('::')[2]}":  # a constructor
                name = f"{alias}::{alias.rpartition('::')[2]}"
            if name in own:
                self.rows[name] = [(*each[:-1], each[-1] or row[-1]) for each in self.rows[name]]
            elif not row[3].startswith("brisel/platform/"):
                self.rows.setdefault(name, []).append((name, *row[1:]))

    def inherit(self, name, derived):
        for base in self.bases.get(name, ()):
            self.repeat(base, derived)
            self.inherit(base, derived)


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def source(rows):
    lines = "".join("    {" + ", ".join(map(quoted, row)) + "},\n" for row in rows)
    return f"""#include "gallery/guide/reference_comments.h"

namespace Brisel::Gallery {{
namespace {{

constexpr ReferenceComment kComments[] = {{
{lines}}};

}}  // namespace

std::span<const ReferenceComment> referenceComments() {{ return kComments; }}

}}  // namespace Brisel::Gallery
"""


def main(doxygen, root, folder, output):
    root, folder = pathlib.Path(root).resolve(), pathlib.Path(folder).resolve()
    run_doxygen(doxygen, root, folder)
    rows = Comments(root, folder).read()
    if not rows:
        sys.exit("reference_comments.py: Doxygen found no public name")
    # An unchanged source is left alone, so that what is made of it need not be made again.
    output, text = pathlib.Path(output), source(rows)
    if not output.exists() or output.read_text(encoding="utf-8") != text:
        output.write_text(text, encoding="utf-8")


if __name__ == "__main__":
    main(*sys.argv[1:])
