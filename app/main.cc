// lumaro: the command-line host of the Lumaro connector.

#include <iostream>

#include "app/CommandLine.h"
#include "app/Program.h"
#include "connector/host/Error.h"

int main(int argc, char** argv) {
  try {
    app::Options options = app::ParseCommandLine(argc, argv);
    app::Program program(std::move(options), std::cout, std::cerr);
    return program.Run();
  } catch (const app::UsageError& error) {
    std::cerr << "lumaro: " << error.what() << "\n(lumaro --help lists the commands)\n";
    return app::kUsageError;
  } catch (const host::Error& error) {
    std::cerr << "error " << error.Number() << " in " << error.Source() << ": "
              << error.Description() << '\n';
    return app::kFailure;
  } catch (const std::exception& error) {
    std::cerr << "lumaro: " << error.what() << '\n';
    return app::kFailure;
  }
}
