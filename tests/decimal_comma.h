// Locales in which 1000.5 is written 1.000,5: what no text of the library may depend on.
#pragma once

#include <clocale>
#include <cstdlib>
#include <locale>
#include <string>

#include "tests/temporary_directory.h"

namespace Brisel {

/// Has the streams of C++ use such a locale.
class DecimalCommaOfStreams {
 public:
  DecimalCommaOfStreams() : previous_(std::locale::global(std::locale(std::locale(), new Punctuation))) {}
  DecimalCommaOfStreams(const DecimalCommaOfStreams&) = delete;
  DecimalCommaOfStreams& operator=(const DecimalCommaOfStreams&) = delete;
  ~DecimalCommaOfStreams() { std::locale::global(previous_); }

 private:
  struct Punctuation : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };

  std::locale previous_;
};

/// Has the functions of C use such a locale, where the machine has one, or the means to compile one.
class DecimalCommaOfC {
 public:
  DecimalCommaOfC() : isSet_(setInstalled() || setCompiled()) {}
  DecimalCommaOfC(const DecimalCommaOfC&) = delete;
  DecimalCommaOfC& operator=(const DecimalCommaOfC&) = delete;
  ~DecimalCommaOfC() { std::setlocale(LC_ALL, "C"); }

  bool isSet() const noexcept { return isSet_; }

 private:
  static bool setInstalled() { return std::setlocale(LC_ALL, "de_DE.UTF-8") || std::setlocale(LC_ALL, "fr_FR.UTF-8"); }

  static bool setCompiled() {
    const TemporaryDirectory directory;
    const std::string path = directory.path() / "de_DE.UTF-8";
    const std::string command = "localedef --no-archive -i de_DE -f UTF-8 '" + path + "' > /dev/null 2>&1";
    if (std::system(command.c_str()) != 0) return false;
    ::setenv("LOCPATH", directory.path().c_str(), 1);
    const bool isSet = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr;
    ::unsetenv("LOCPATH");
    return isSet;
  }

  bool isSet_;
};

}  // namespace Brisel
