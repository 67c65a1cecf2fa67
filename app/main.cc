// lumaro: the command-line host of the Lumaro connector.

#include <iostream>

#include "app/CommandLine.h"
#include "app/Failure.h"
#include "app/Program.h"

int main(int argc, char** argv) {
  try {
    app::Options options = app::ParseCommandLine(argc, argv);
    app::Program program(std::move(options), std::cout, std::cerr);
    return program.Run();
  } catch (...) {
    app::Failure failure = app::DescribeFailure(std::current_exception());
    std::cerr << failure.line << '\n';
    if (failure.exit_code == app::kUsageError) std::cerr << "(lumaro --help lists the commands)\n";
    return failure.exit_code;
  }
}
