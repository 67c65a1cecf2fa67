#include "tests/app/ProgramRunner.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

namespace testsupport {
namespace {

// Reads both pipes to their ends without letting either fill up.
void Drain(int out_fd, int err_fd, std::string& out, std::string& err) {
  pollfd fds[2] = {{out_fd, POLLIN, 0}, {err_fd, POLLIN, 0}};
  std::string* sinks[2] = {&out, &err};
  int open = 2;
  while (open > 0) {
    if (::poll(fds, 2, -1) < 0) break;
    for (int i = 0; i < 2; ++i) {
      if (fds[i].fd < 0 || fds[i].revents == 0) continue;
      char buffer[4096];
      ssize_t got = ::read(fds[i].fd, buffer, sizeof buffer);
      if (got > 0) {
        sinks[i]->append(buffer, static_cast<size_t>(got));
      } else {
        ::close(fds[i].fd);
        fds[i].fd = -1;
        --open;
      }
    }
  }
}

}  // namespace

ProgramResult RunLumaro(const std::string& folder, const std::vector<std::string>& args,
                        bool as_nobody) {
  std::vector<std::string> argv;
  if (as_nobody) {
    argv = {"/usr/bin/setpriv", "--reuid=65534", "--regid=65534", "--clear-groups", "--"};
  }
  argv.push_back(std::string(LUMARO_BIN_DIR) + "/lumaro");
  argv.insert(argv.end(), args.begin(), args.end());
  return RunProgram(folder, std::move(argv));
}

ProgramResult RunProgram(const std::string& folder, std::vector<std::string> argv) {
  int out_pipe[2], err_pipe[2];
  if (::pipe(out_pipe) != 0 || ::pipe(err_pipe) != 0) throw std::runtime_error("pipe failed");
  pid_t pid = ::fork();
  if (pid == 0) {
    ::dup2(out_pipe[1], STDOUT_FILENO);
    ::dup2(err_pipe[1], STDERR_FILENO);
    ::close(out_pipe[0]);
    ::close(err_pipe[0]);
    if (::chdir(folder.c_str()) != 0) ::_exit(127);
    std::vector<char*> c_args;
    for (std::string& arg : argv) c_args.push_back(arg.data());
    c_args.push_back(nullptr);
    ::execv(c_args[0], c_args.data());
    ::_exit(127);
  }
  ::close(out_pipe[1]);
  ::close(err_pipe[1]);
  ProgramResult result;
  Drain(out_pipe[0], err_pipe[0], result.out, result.err);
  int status = 0;
  ::waitpid(pid, &status, 0);
  result.exit_code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

}  // namespace testsupport
