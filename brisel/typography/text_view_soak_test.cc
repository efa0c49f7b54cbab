// Labels by the hundred thousand, on the port that ships: what they take, they give back.
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <malloc.h>

#include "brisel/platform/views/label.h"
#include "brisel/typography/dynamic_type_monitor.h"
#include "brisel/typography/text_view_styling.h"

namespace Brisel {
namespace {

using namespace Platform;

std::size_t bytesInUse() {
  const struct mallinfo2 info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

// Makes labels that stay subscribed, restyles them all twice, measures them and frees them.
void liveAndDie(std::size_t count) {
  auto& monitor = *DynamicTypeMonitor::shared();
  std::vector<std::shared_ptr<UILabel>> labels;
  for (std::size_t i = 0; i < count; ++i) {
    const auto& label = labels.emplace_back(UILabel::initWithFrame({{}, {120, 40}}));
    label->setText("Label " + std::to_string(i % 97));
    apply(*label, i % 2 == 0 ? TypeStyle::ballad() : TypeStyle::minuet(), UIContentSizeCategoryLarge, true);
  }
  for (const auto& category : {UIContentSizeCategorySmall, UIContentSizeCategoryLarge}) {
    monitor.setup(category);
    for (const auto& label : labels) ASSERT_GT(label->intrinsicContentSize().width, 0);
  }
}

TEST(TextViewSoak, AHundredThousandLabelsLeaveMemoryAsItWas) {
  constexpr std::size_t kBatch = 1000;
  constexpr std::size_t kBatches = 100;
  liveAndDie(kBatch);
  liveAndDie(kBatch);  // Twice: what is kept from batch to batch, such as the monitor's table, has its size now.
  const std::size_t before = bytesInUse();
  if (before == 0) GTEST_SKIP() << "This allocator keeps no count.";
  for (std::size_t batch = 2; batch < kBatches; ++batch) liveAndDie(kBatch);
  const std::size_t after = bytesInUse();
  // A byte a label would already be too much.
  EXPECT_LT(after, before + kBatch * kBatches);
}

}  // namespace
}  // namespace Brisel
