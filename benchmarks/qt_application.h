#pragma once

#include <QApplication>

#include <benchmark/benchmark.h>

#include "benchmarks/bundle_fonts.h"

namespace Brisel::Benchmarks {

/// The application that Qt's text, painting and labels ask for, without a window. It knows the bundle's fonts alone.
inline void qtApplication() {
  static QApplication* const application = [] {
    fontConfig();  // Before Qt asks for one.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    static int count = 1;
    static char name[] = "benchmarks";
    static char* arguments[] = {name, nullptr};
    return new QApplication(count, arguments);
  }();
  benchmark::DoNotOptimize(application);
}

}  // namespace Brisel::Benchmarks
