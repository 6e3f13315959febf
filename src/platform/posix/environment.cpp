// The C library's environment calls are not safe against each other across threads; the
// layer's own calls at least take turns.
#include "platform/environment.h"

#include <errno.h>
#include <stdlib.h>

#include <cstring>
#include <mutex>

#include "platform/last_error.h"
#include "platform/posix/errors.h"

namespace brelt::platform {
namespace {

std::mutex g_environmentLock;

}  // namespace

std::uint32_t EnvironmentValue(const char* name, char* value, std::uint32_t capacity) {
  std::lock_guard<std::mutex> hold(g_environmentLock);
  const char* found = getenv(name);
  if (found == nullptr) return posix::Fail(kErrorEnvVarNotFound), 0;
  const std::size_t length = std::strlen(found);
  if (length >= capacity) return static_cast<std::uint32_t>(length + 1);
  std::memcpy(value, found, length + 1);
  return static_cast<std::uint32_t>(length);
}

bool SetEnvironmentValue(const char* name, const char* value) {
  std::lock_guard<std::mutex> hold(g_environmentLock);
  return setenv(name, value, 1) == 0 || posix::FailFromErrno();
}

}  // namespace brelt::platform
