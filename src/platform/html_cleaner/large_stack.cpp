#include "platform/html_cleaner/large_stack.h"

#include <pthread.h>

#include <exception>

#include "text/failure.h"

namespace quillary::platform {
namespace {

constexpr std::size_t kStackBytes = std::size_t{64} << 20;

struct Work {
  const std::function<void()>& action;
  std::exception_ptr thrown;
};

void* Run(void* argument) {
  Work& work = *static_cast<Work*>(argument);
  try {
    work.action();
  } catch (...) {
    work.thrown = std::current_exception();
  }
  return nullptr;
}

}  // namespace

void RunOnLargeStack(const std::function<void()>& action) {
  Work work{action, nullptr};
  pthread_attr_t attributes;
  pthread_t thread;
  bool runs = pthread_attr_init(&attributes) == 0;
  if (runs) {
    runs = pthread_attr_setstacksize(&attributes, kStackBytes) == 0 &&
           pthread_create(&thread, &attributes, Run, &work) == 0;
    pthread_attr_destroy(&attributes);
  }
  if (!runs)
    throw Failure(Failure::Kind::Raised, 0, "HTML cleaner", "There is no thread for the HTML library.");
  pthread_join(thread, nullptr);
  if (work.thrown) std::rethrow_exception(work.thrown);
}

}  // namespace quillary::platform
