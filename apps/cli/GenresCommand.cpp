#include "corvane/id3v1/Genres.h"

#include "apps/cli/Commands.h"

#include <fmt/core.h>
#include <nlohmann/json.hpp>

namespace corvane::cli {

namespace {

class GenresCommand final : public Command {
public:
    void declareOptions(Options& options) override {
        options.addFlag("--json", json_, R"(One JSON object a line, with "number" and "name")");
    }

    void run(Session& session, const std::vector<std::string>&) override {
        const Genres genres;
        for (const auto& genre : genres) session.output.write(line(genre->Num(), genre->Description()));
    }

private:
    std::string line(int number, const std::string& name) const {
        if (!json_) return fmt::format("{:3}  {}\n", number, name);
        return nlohmann::ordered_json{{"number", number}, {"name", name}}.dump() + "\n";
    }

    bool json_ = false;
};

} // namespace

std::unique_ptr<Command> makeGenresCommand() { return std::make_unique<GenresCommand>(); }

} // namespace corvane::cli
