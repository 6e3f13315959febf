// Child processes over posix_spawn. The caller waits on a process descriptor (pidfd), as it
// would on a process handle elsewhere. Like a Windows child, the child inherits no descriptors
// beyond the standard streams and starts with default signal handling and nothing blocked.
#include "platform/process.h"

#include <errno.h>
#include <signal.h>
#include <spawn.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <string>
#include <vector>

#include "platform/last_error.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/dos_names.h"
#include "platform/posix/errors.h"

extern char** environ;

namespace brelt::platform {
namespace {

// The texts of an environment block, as a vector ended by a null pointer.
std::vector<char*> EnvironmentVector(char* block) {
  std::vector<char*> vars;
  for (char* p = block; *p != '\0'; p += std::char_traits<char>::length(p) + 1) vars.push_back(p);
  vars.push_back(nullptr);
  return vars;
}

// Spawning state released on every way out.
struct SpawnSetup {
  posix_spawn_file_actions_t actions;
  posix_spawnattr_t attributes;
  SpawnSetup() {
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addclosefrom_np(&actions, posix::kFirstHandleDescriptor);
    posix_spawnattr_init(&attributes);
    sigset_t none, all;
    sigemptyset(&none);
    sigfillset(&all);
    posix_spawnattr_setsigmask(&attributes, &none);
    posix_spawnattr_setsigdefault(&attributes, &all);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  ~SpawnSetup() {
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
  }
};

}  // namespace

bool StartProcess(const char* program, char* /*commandLine*/, char* const* arguments,
                  void* environment, Handle* process, std::uint32_t* processId) {
  posix::NativeName native;
  if (!posix::ResolveName(program, posix::NameUse::kPlain, &native)) return false;
  std::vector<char*> vars;
  char* const* envp = environ;
  if (environment != nullptr) {
    vars = EnvironmentVector(static_cast<char*>(environment));
    envp = vars.data();
  }
  SpawnSetup setup;
  pid_t pid;
  const int error =
      posix_spawn(&pid, native.path, &setup.actions, &setup.attributes, arguments, envp);
  if (error != 0) {
    errno = error;  // a missing program in a missing folder is "path not found"
    return posix::FailForName(native);
  }
  *processId = static_cast<std::uint32_t>(pid);
  // The child cannot have been reaped yet, so its id still names it here. Where the kernel
  // gives no process descriptors, the child runs all the same but cannot be waited on.
  *process = posix::HandleOfNewDescriptor(static_cast<int>(syscall(SYS_pidfd_open, pid, 0)));
  if (*process == kInvalidHandle) posix::FailFromErrno();
  return true;
}

}  // namespace brelt::platform
