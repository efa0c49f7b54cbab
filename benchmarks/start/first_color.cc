#include "brisel/tokens/color.h"

int main() { return Brisel::Color::gray7().value()->alpha() == 1.0 ? 0 : 1; }
