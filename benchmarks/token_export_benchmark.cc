// All tokens written for other tools, without the files: each family and the whole as Design Tokens, the style sheet
// and the flat list.
#include <string>
#include <vector>

#include "benchmarks/job.h"
#include "gallery/exports/css.h"
#include "gallery/exports/dtcg.h"
#include "gallery/exports/families.h"
#include "gallery/exports/flat_json.h"

namespace {

using namespace Brisel::Gallery;

void write(benchmark::State& state) {
  for (auto _ : state) {
    for (const TokenFamily& family : tokenFamilies()) benchmark::DoNotOptimize(dtcgText(family.tokens()));
    const std::vector<Token> all = allTokens();
    benchmark::DoNotOptimize(dtcgText(all));
    benchmark::DoNotOptimize(cssText(all));
    benchmark::DoNotOptimize(flatJsonText(all));
  }
}
BRISEL_JOB("token_export/ours", write)->Unit(benchmark::kMillisecond);

}  // namespace
