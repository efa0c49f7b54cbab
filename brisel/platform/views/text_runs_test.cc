// Views change all runs of a text in one walk: were each run changed alone, the runs would be compared as often as the
// square of their number.
#include <gtest/gtest.h>

#include "brisel/platform/internal/compared_object_test.h"
#include "brisel/platform/views/label.h"
#include "brisel/platform/views/text_field.h"
#include "brisel/platform/views/text_view.h"

#include "tests/recording_ports.h"

namespace Brisel::Platform {
namespace {

constexpr std::size_t kRuns = 200;

class TextRuns : public testing::Test {
 protected:
  TextRuns() { recordingEngine(); }

  template <class View, class Change>
  static void expectOneWalk(Change change) {
    const auto view = View::initWithFrame();
    view->setAttributedText(textOfRuns(std::string(kRuns, 'a'), {}));
    change(*view);
    EXPECT_EQ(view->attributedText()->attributeRuns().size(), kRuns);
    EXPECT_LE(ComparedObject::comparisons, 2 * kRuns);
  }
};

TEST_F(TextRuns, OfALabelChangeInOneWalk) {
  expectOneWalk<UILabel>([](UILabel& label) { label.setTextAlignment(NSTextAlignment::right); });
}

TEST_F(TextRuns, OfATextFieldChangeInOneWalk) {
  expectOneWalk<UITextField>([](UITextField& field) { field.setTextAlignment(NSTextAlignment::right); });
  expectOneWalk<UITextField>([](UITextField& field) { field.setTextColor(UIColor::initWithWhite(0.5, 1)); });
}

TEST_F(TextRuns, OfATextViewChangeInOneWalk) {
  expectOneWalk<UITextView>([](UITextView& view) { view.setTextAlignment(NSTextAlignment::right); });
}

}  // namespace
}  // namespace Brisel::Platform
