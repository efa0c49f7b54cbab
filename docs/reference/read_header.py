"""A public header as Doxygen is to read it: docs/Doxyfile runs `read_header.py <header>` for each.

- Names that a header takes from a catalogue (a .def file) get a declaration each, and a sentence made of their row.
- A comment holds for the overloads and for the setter that follow without a blank line or a comment of their own.
- Members that are defaulted or deleted go, and so do friends without a comment: a class's own comment says whether it
  is made, copied and compared.

Every line keeps its number, so that warnings name the right one. Doxygen heeds neither a filter's status nor
enumerators without a comment; for both a function stands here that has none, of which it complains.
"""

import re
import sys
import traceback

# By catalogue and kind of row, in terms of the row's fields and of those that `described` adds.
SENTENCES = {
    ("palette", "GREY"): "`{grey}` in the palette{opacity}, in grey form.",
    ("palette", "RGB"): "`{rgb}` in the palette, of the family {title}.",
    ("legacy_colors", "GREY"): "`{grey}` by an older name{opacity}, in grey form.",
    ("legacy_colors", "RGB"): "`{rgb}` by an older name.",
    ("opacities", "OPACITY"): "The opacity {number}.",
    ("spacers", "SPACER"): "The spacing of {points} points.",
    ("campaign", "CAMPAIGN"): "The campaign colours of {words}: {foreground} on {surface}.",
    ("typefaces", "TYPEFACE"): "The typeface {familyName}.",
    ("typefaces", "FONT_WEIGHT"): "The weight {suffix}.",
    ("typefaces", "NUMBER_SPACING"): "Digits spaced as “{description}”.",
    ("content_sizes", "CONTENT_SIZE"): "The text size at {scale} on the accessibility scale.",
    ("type_styles", "TYPE_STYLE"): "The style {title}: {weight}, {size} points; {least} to {most} by the text size.",
    ("icons", "ICON"): "The icon “{name}”{mirrored}.",
}

DEFINE = re.compile(r"#define BRISEL_(\w+)\(([^)]*)\)(.*)")
ROW = re.compile(r"BRISEL_(\w+)\((.*)\)")
# Commas and brackets within quotes or brackets belong to an argument.
ARGUMENT = re.compile(r'\s*("[^"]*"|\([^()]*\)|[^,]+)\s*(?:,|$)')
# What a program never names: hashes for the standard library's tables, and explicit instantiations.
UNNAMED = re.compile(r"^template <>\nstruct std::hash<[^;]*?\{(?:\};|\n(?:.*\n)*?\};)|^extern template .*", re.M)
# A member that is defaulted or deleted, a friend without a body, and operators and hashes with theirs; each to the end
# of its last line.
UNSAID = re.compile(
    r"^ *(?!\w+:\n)[^\s/#*{}][^;{}]*= (?:default|delete);[^\n]*"
    r"|^ *friend (?:[^;{}]*;|[^;{}(]*\b(?:operator\W|hashInto\()[^;{}]*\{(?:[^{}]|\{[^{}]*\})*\})[^\n]*",
    re.M,
)
# Comments may hold braces.
ENUMERATION = re.compile(r"\benum (?:(?:class|struct) )?(\w*)[^;{}()]*\{((?:[^{}/]|//.*\n|/(?!/))*)\};")
# In a body whose comments are @ where they hold for what follows, and < where for what precedes.
ENUMERATOR = re.compile(r"(@?)\s*\b([A-Za-z_]\w*)[^,@<]*,?\s*(<?)")


def blank(text):
    return "\n" * text.count("\n")


def without_unsaid(found):
    """Nothing, or the declaration itself where a comment above describes it."""
    above = found.string[: found.start()].rstrip("\n").rpartition("\n")[2]
    return found[0] if re.match(r" */// [^@]", above) else blank(found[0])


def arguments(text):
    return [argument.strip().strip('"()') for argument in ARGUMENT.findall(text)]


def hex_of(*components):
    return "#" + "".join(f"{int(float(component) * 255 + 0.5):02X}" for component in components)


def shade(label):
    return f"`#{label[1:]}`" if label.startswith("x") else label


def described(fields, title):
    """The row's fields, and what sentences say that no field says."""
    more = dict(fields, title=fields.get("title", title))
    if "white" in fields:
        more["grey"] = hex_of(*[fields["white"]] * 3)
        more["opacity"] = "" if float(fields["alpha"]) == 1 else f" at an opacity of {float(fields['alpha']):g}"
    if "red" in fields:
        more["rgb"] = hex_of(fields["red"], fields["green"], fields["blue"])
    if "surface" in fields:
        more["words"] = re.sub(r"(?=[A-Z0-9])", " ", fields["name"]).lower()
        more["foreground"], more["surface"] = shade(fields["foreground"]), shade(fields["surface"])
    if "fontSizes" in fields:
        sizes = arguments(fields["fontSizes"])
        more["least"], more["most"] = sizes[0], sizes[-1]
    if "number" in fields:
        more["points"] = f"{float(fields['number']):g}"
    if "autoMirror" in fields:
        more["mirrored"] = ", to be mirrored in right-to-left layouts" if fields["autoMirror"] == "true" else ""
    return more


def expanded(path, macros):
    """The declarations that a header's macros make of a catalogue, on one line. A definition is none."""
    catalogue = re.search(r"(\w+)\.def$", path)[1]
    names, title, declarations = {}, "", []
    with open(path, encoding="utf-8") as file:
        text = file.read().replace("\\\n", " ")
    for line in text.splitlines():
        if found := DEFINE.match(line):
            names[found[1]] = [name.strip() for name in found[2].split(",")]
        elif found := ROW.match(line):
            kind, values = found[1], arguments(found[2])
            if kind == "FAMILY":
                title = values[-1]
            if kind not in macros or macros[kind][1].startswith("inline "):
                continue
            parameters, declaration = macros[kind]
            said = dict(zip(parameters, values))
            declaration = re.sub(r"\w+", lambda word: said.get(word[0], word[0]), declaration).replace("##", "")
            sentence = SENTENCES[catalogue, kind].format(**described(dict(zip(names[kind], values)), title))
            declarations.append(f"/** {sentence} */ {declaration}")
    return " ".join(declarations)


def name_of(declaration):
    """The declared function's name; nothing for what declares none."""
    plain = re.sub(r"^\s*template <[^{;]*?>(?=\s)(?:\s*requires .*?\}|)", "", declaration)
    inner = None
    while inner != plain:  # A type may have brackets of its own: std::function<void()>.
        inner, plain = plain, re.sub(r"(?<!operator)<[^<>]*>", "", plain)
    found = re.match(r"(?!\s*(?:class|struct|enum|using|namespace|extern)\b)[^(={]*?([\w~]+)\(", plain)
    return found[1] if found else None


def is_whole(declaration):
    """Whether nothing of it, such as a body, is on the next line."""
    opened = declaration.count("(") + declaration.count("{") - declaration.count(")") - declaration.count("}")
    ends = re.search(r"[;}]\s*$", declaration) and not re.search(r"requires\b[^;]*\{[^{}]*\}\s*$", declaration)
    return bool(ends) and opened <= 0


def holds_for(owner, name):
    """Whether the comment of one function holds for the other right below: an overload, or the setter of a getter."""
    property_ = re.sub(r"^is(?=[A-Z])", "", owner)
    return name in (owner, "set" + property_[:1].upper() + property_[1:])


def shared(text):
    """The text, with comments repeated where they hold for what follows."""
    lines = text.split("\n")
    comment, owner = "", None  # the last comment, and whose it is
    is_above = False  # whether it stands right above
    declaration, first = "", 0  # the one that has begun, and its first line
    for number, line in enumerate(lines):
        word = line.strip()
        if not declaration:
            if word.startswith("///") and word[4:5] != "@":
                comment = comment + " " + word[3:] if is_above else word[3:]
                is_above, owner = True, None
                continue
            if not word or word.startswith(("//", "#")) or (word.endswith((":", "{")) and not name_of(word)):
                is_above, owner = False, None
                continue
            first = number
        declaration += " " + line.split("//")[0]
        if not is_whole(declaration):
            continue
        name = name_of(declaration)
        if is_above:
            owner = name
        elif owner and name and holds_for(owner, name):
            lines[first] = f"/**{comment} */ {lines[first]}"
        else:
            owner = None
        is_above, declaration = False, ""
    return "\n".join(lines)


def with_complaints(enumeration):
    """The enumeration, and behind it a function without a comment for each enumerator without one."""
    body = re.sub(r"<<|@", " ", enumeration[2])
    for comment, mark in ((r"///<.*", "<"), (r"///.*|/\*\*.*?\*/", "@"), (r"//.*", "")):
        body = re.sub(comment, mark, body)
    bare = [name for before, name, behind in ENUMERATOR.findall(body) if not before and not behind]
    return enumeration[0] + "".join(f" void {enumeration[1]}_{name}_has_no_comment();" for name in bare)


def header(text):
    lines, macros = [], {}
    text = UNNAMED.sub(lambda found: blank(found[0]), text)
    text = UNSAID.sub(without_unsaid, text)
    text = shared(text)
    # Doxygen takes all of a comment of one line for its first sentence, unless it is written like this.
    text = re.sub(r"(?m)(^(?! *///).*\n *)/// ([^@].*)\n(?! *///)", r"\1/** \2 */\n", text)
    # A macro of several lines becomes one, and the lines that it leaves stand behind it.
    text = re.sub(r"(?:.*\\\n)+.*", lambda found: found[0].replace("\\\n", " ") + blank(found[0]), text)
    for line in text.split("\n"):
        if found := DEFINE.match(line):
            macros[found[1]] = [name.strip() for name in found[2].split(",")], found[3].strip()
            line = ""
        elif found := re.match(r'#include "(.*\.def)"', line):
            line, macros = expanded(found[1], macros), {}
        lines.append(line)
    lines = ENUMERATION.sub(with_complaints, "\n".join(lines)).split("\n")
    # Doxygen passes over the functions of a file without a comment. A remark at its head is that.
    for number, line in enumerate(lines):
        if not line.startswith("//"):
            lines[number] = "/// \\file"
            break
        lines[number] = "/" + line
    return "\n".join(lines)


try:
    with open(sys.argv[1], encoding="utf-8") as file:
        sys.stdout.write(header(file.read()))
except Exception:
    traceback.print_exc()
    sys.stdout.write("/// \\file\nvoid this_header_could_not_be_read();\n")
    sys.exit(1)
