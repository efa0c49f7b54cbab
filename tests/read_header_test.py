#!/usr/bin/env python3
"""docs/reference/read_header.py, through which Doxygen reads the public headers, and what Doxygen makes of it.

Usage: read_header_test.py <doxygen>
"""

import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

DOXYGEN = sys.argv.pop()
SOURCES = pathlib.Path(__file__).resolve().parent.parent
FILTER = SOURCES / "docs/reference/read_header.py"


class ReadHeader(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.top = pathlib.Path(folder.name)

    def write(self, name, text):
        (self.top / name).write_text(text)

    def read(self, header):
        """What the filter makes of a header, which keeps its lines, and comments as (comment, the code behind it)."""
        self.write("a.h", "// What it is.\n" + header)
        result = subprocess.run([sys.executable, "-IS", FILTER, "a.h"], cwd=self.top, capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertGreaterEqual(result.stdout.count("\n"), header.count("\n") + 1)
        return result.stdout

    def comment_above(self, code, text):
        """The comment right before the code, if any."""
        found = re.search(r"(?:/\*\* ([^*]*) \*/)?\s*" + re.escape(code), text)
        self.assertIsNotNone(found, text)
        return found[1]

    def complaints(self, header):
        """Doxygen's, by the repository's settings."""
        self.write("a.h", header)
        settings = (SOURCES / "docs/Doxyfile").read_text() + f"""
INPUT = a.h
EXAMPLE_PATH =
HTML_EXTRA_STYLESHEET =
USE_MDFILE_AS_MAINPAGE =
GENERATE_HTML = NO
GENERATE_XML = YES
OUTPUT_DIRECTORY = .
FILTER_PATTERNS = *.h="{sys.executable} -IS {FILTER}"
"""
        result = subprocess.run([DOXYGEN, "-"], cwd=self.top, input=settings, capture_output=True, text=True)
        self.assertEqual(result.returncode != 0, result.stderr != "")
        return result.stderr

    def test_fails_where_it_cannot_read_a_header(self):
        self.write("spacers.def", "#define BRISEL_SPACER(name, number)\nBRISEL_SPACER(x4, four)\n")
        self.write("unknown.def", "#define BRISEL_SPACER(name, number)\nBRISEL_SPACER(x4, 4)\n")
        for catalogue in ("missing", "unknown", "spacers"):
            header = f'#define BRISEL_SPACER(name, number) void name();\n#include "{catalogue}.def"\n'
            said = self.complaints(header)
            self.assertIn("Traceback", said)
            self.assertIn("Member this_header_could_not_be_read() (function) of file a.h is not documented", said)

    def test_lets_no_name_without_a_comment_pass(self):
        commented = "#pragma once\n/// E.\nenum class E { /** One. */ one };\n\n/// F.\nvoid f();\n"
        self.assertEqual(self.complaints(commented), "")
        self.assertIn("a.h:7: error: Member g() ", self.complaints(commented + "void g();\n"))

    def test_lets_no_enumerator_without_a_comment_pass(self):
        said = self.complaints("""// A.

/// E.
enum class E : int {
  one = 1,  ///< one {as a rule}
            ///< and no more
  /// Two.
  two = 1 << 1,
  three,  // no comment, for Doxygen
  four
};
/// C.
class C {
 private:
  enum class Hidden { any };
};
""")
        self.assertEqual(re.findall(r"a.h:(\d+): error: Member (\w+)", said),
                         [("11", "E_three_has_no_comment"), ("11", "E_four_has_no_comment")])

    def test_repeats_comments_for_overloads_and_setters(self):
        text = self.read("""
/// The width.
double width() const;
void setWidth(double);
void setwidth(double);

/// Whether it is one.
bool isHidden();
void setHidden(bool);

/// Draws.
void draw(int);
template <class T>
void draw(std::function<void(T)> how);
void erase();
void draw(double);
""")
        self.assertEqual(self.comment_above("void setWidth(", text), "The width.")
        self.assertIsNone(self.comment_above("void setwidth(", text))
        self.assertEqual(self.comment_above("void setHidden(", text), "Whether it is one.")
        self.assertEqual(self.comment_above("template <class T>", text), "Draws.")
        self.assertIsNone(self.comment_above("void erase(", text))
        self.assertIsNone(self.comment_above("void draw(double)", text))

    def test_takes_no_type_for_the_name(self):
        text = self.read("""
/// First.
std::function<void()> first;
std::function<void()> second;

/// Acts.
std::function<void()> act();
std::map<int, std::function<void()>> act(int);
""")
        self.assertIsNone(self.comment_above("std::function<void()> second", text))
        self.assertEqual(self.comment_above("std::map", text), "Acts.")

    def test_drops_what_goes_without_saying(self):
        text = self.read("""
class C {
 public:
  C(const C&) = delete;
  friend class D;
  friend bool operator==(const C&, const C&) = default;
  friend bool operator<(const C& a, const C& b) {
    if (a.n) { return false; }
    return a.n < b.n;
  }
  friend void hashInto(Hasher& hasher, const C& c) { hasher.add(c.n); }
  friend void draw(const C& c) { c.draw(); }
  /// Whether both are alike.
  friend bool operator!=(const C&, const C&) = default;
};
""")
        for gone in ("delete", "class D", "operator==", "operator<", "hashInto", "return"):
            self.assertNotIn(gone, text)
        self.assertIn("friend void draw(const C& c) { c.draw(); }", text)
        self.assertEqual(self.comment_above("friend bool operator!=", text), "Whether both are alike.")

    def test_writes_out_the_rows_of_a_catalogue(self):
        self.write("spacers.def", """// BRISEL_SPACER(name, number, objectName)
#define BRISEL_SPACER(name, number, objectName)
BRISEL_SPACER(x4, 4, spacer4)
BRISEL_SPACER(x80, 80.0, spacer80)
#undef BRISEL_SPACER
""")
        text = self.read("""
class Spacer {
#define BRISEL_SPACER(name, number, objectName) \\
  static Spacer objectName##_() { return Spacer(number); }
#include "spacers.def"
};
""")
        line = text.split("\n")[5]  # that of the #include
        self.assertEqual(self.comment_above("static Spacer spacer4_() { return Spacer(4); }", line),
                         "The spacing of 4 points.")
        self.assertEqual(self.comment_above("static Spacer spacer80_() { return Spacer(80.0); }", line),
                         "The spacing of 80 points.")
        self.assertEqual(text.split("\n")[6], "};")


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
