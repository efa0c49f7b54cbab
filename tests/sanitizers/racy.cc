// Two threads count without a lock, on purpose.
#include <thread>

namespace {
int unguarded = 0;
void count() {
  for (int i = 0; i < 1000; ++i) ++unguarded;
}
}  // namespace

int main() {
  std::thread other(count);
  count();
  other.join();
  return unguarded == 0;
}
