#include "testkit/scenario_main.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "testkit/scenario.h"
#include "testkit/statement.h"

namespace orvik::testkit {
namespace {

namespace fs = std::filesystem;

constexpr int kFailed = 1;
constexpr int kCannotRun = 2;

// A fresh folder that is the current one as long as this lives.
class ScratchFolder {
 public:
    ScratchFolder() : former_(fs::current_path()) {
        std::random_device random;
        do {
            path_ = fs::temp_directory_path() / ("orvik-scenario-" + std::to_string(random()));
        } while (!fs::create_directory(path_));
        fs::current_path(path_);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ScratchFolder(ScratchFolder&&) = delete;
    ScratchFolder& operator=(ScratchFolder&&) = delete;
    ~ScratchFolder() {
        std::error_code ignored;
        fs::current_path(former_, ignored);
        fs::remove_all(path_, ignored);
    }

 private:
    fs::path former_;
    fs::path path_;
};

struct Source {
    std::string Name;
    std::vector<std::string> Lines;
};

// Errors: ScenarioError.
Source ReadSource(const std::string& name) {
    std::string text;
    if (name == "-") {
        text.assign(std::istreambuf_iterator<char>(std::cin), {});
    } else {
        std::ifstream file(name, std::ios::binary);
        text.assign(std::istreambuf_iterator<char>(file), {});
        if (!file || fs::is_directory(name)) {
            throw ScenarioError("cannot be read");
        }
    }
    Source source{name, {}};
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size());
        source.Lines.push_back(text.substr(start, end - start));
        if (source.Lines.back().ends_with('\r')) {
            source.Lines.back().pop_back();
        }
        start = end + 1;
    }
    return source;
}

bool IsExpectation(const std::string& line) {
    return line.starts_with('>');
}

bool IsStatement(const std::string& line) {
    return !IsExpectation(line) && !line.starts_with('#') &&
           line.find_first_not_of(" \t") != std::string::npos;
}

std::string ExpectedLine(const std::string& line) {
    return line.substr(line.starts_with("> ") ? 2 : 1);
}

// One scenario with its folder and its program.
class Run {
 public:
    Run(const Source& source, const MakeActor& make_actor, ScenarioPlatform::Print print)
        : source_(source),
          platform_(std::move(print)),
          actor_(make_actor(platform_)),
          scenario_(platform_, *actor_) {}

    // Returns false, with a message, if the line cannot be run.
    bool RunLine(std::size_t index) {
        try {
            scenario_.Run(source_.Lines[index]);
            return true;
        } catch (const ScenarioError& error) {
            std::cout.flush();
            std::cerr << source_.Name << ':' << index + 1 << ": " << error.what() << '\n';
            return false;
        }
    }

 private:
    ScratchFolder folder_;
    const Source& source_;
    ScenarioPlatform platform_;
    std::unique_ptr<Actor> actor_;
    Scenario scenario_;
};

int RunOne(const Source& source, const MakeActor& make_actor) {
    Run run(source, make_actor, [](const std::string& line) { std::cout << line << '\n'; });
    for (std::size_t i = 0; i < source.Lines.size(); ++i) {
        if (IsStatement(source.Lines[i]) && !run.RunLine(i)) {
            return kCannotRun;
        }
    }
    return 0;
}

void PrintDifference(const Source& source,
                     std::size_t first_line,
                     const std::vector<std::string>& expected,
                     const std::vector<std::string>& printed) {
    std::size_t same = 0;
    while (same < expected.size() && same < printed.size() && expected[same] == printed[same]) {
        ++same;
    }
    std::cout << source.Name << ':' << first_line << ": the transcript differs\n";
    std::cout << "  expected: " << (same < expected.size() ? expected[same] : "(nothing more)")
              << "\n  printed:  " << (same < printed.size() ? printed[same] : "(nothing more)")
              << '\n';
}

// Runs a scenario up to the end and compares each run of statements with what is expected of it.
int CheckOne(const Source& source, const MakeActor& make_actor) {
    std::vector<std::string> printed;
    Run run(source, make_actor, [&](const std::string& line) { printed.push_back(line); });
    int status = 0;
    for (std::size_t i = 0; i < source.Lines.size();) {
        if (!IsExpectation(source.Lines[i])) {
            if (IsStatement(source.Lines[i]) && !run.RunLine(i)) {
                return kCannotRun;
            }
            ++i;
            continue;
        }
        const std::size_t first_line = i + 1;
        std::vector<std::string> expected;
        for (; i < source.Lines.size() && !IsStatement(source.Lines[i]); ++i) {
            if (IsExpectation(source.Lines[i])) {
                expected.push_back(ExpectedLine(source.Lines[i]));
            }
        }
        if (expected != printed) {
            PrintDifference(source, first_line, expected, printed);
            status = kFailed;
        }
        printed.clear();
    }
    return status;
}

int CheckAll(const std::vector<std::string>& names, const MakeActor& make_actor) {
    int status = 0;
    std::size_t passed = 0;
    for (const std::string& name : names) {
        int one = kCannotRun;
        try {
            one = CheckOne(ReadSource(name), make_actor);
        } catch (const ScenarioError& error) {
            std::cerr << name << ":0: " << error.what() << '\n';
        }
        passed += one == 0 ? 1 : 0;
        status = std::max(status, one);
    }
    std::cout << passed << " passed, " << names.size() - passed << " failed\n";
    return status;
}

}  // namespace

int ScenarioMain(int argc, char** argv, const MakeActor& make_actor) {
    const std::vector<std::string> words(argv + 1, argv + argc);
    if (words.size() > 1 && words[0] == "--check") {
        return CheckAll({words.begin() + 1, words.end()}, make_actor);
    }
    if (words.size() != 1 || words[0].starts_with("--")) {
        std::cerr << "usage: " << argv[0] << " FILE | - | --check FILE...\n";
        return kCannotRun;
    }
    try {
        return RunOne(ReadSource(words[0]), make_actor);
    } catch (const ScenarioError& error) {
        std::cerr << words[0] << ":0: " << error.what() << '\n';
        return kCannotRun;
    }
}

}  // namespace orvik::testkit
