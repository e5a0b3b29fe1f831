#include "batch/run_steps.h"

#include <string>
#include <utility>

#include "app/run_time_error.h"
#include "batch/batch_platform.h"
#include "formats/endings.h"
#include "program/program.h"
#include "settings/keys.h"
#include "settings/numbers.h"
#include "store/settings_store.h"

namespace orvik::batch {
namespace {

class Runner {
 public:
    Runner(const Arguments& arguments,
           cli::Messenger& messenger,
           FileSystem& files,
           const std::string& settings_file)
        : files_(files),
          store_(files,
                 settings_file,
                 [this](const std::string& problem) { platform_.Fail(problem); }),
          platform_(arguments, messenger, store_) {
        platform_.Attach(module_);
    }

    // What the window program does when it starts.
    void Start() {
        platform_.BeginStep({}, {}, nullptr);
        Run([&] { module_.form1.Load(); }, [] { return false; });
    }

    void RunStep(const Step& step) {
        switch (step.What) {
            case Command::Open:
                Read(step, [&] { module_.form1.mnuOpen_Click(); });
                break;
            case Command::Extract:
                Read(step, [&] { module_.form1.mnuExtract_Click(); });
                break;
            case Command::Merge:
                Read(step, [&] { module_.form1.mnuMerge_Click(); });
                break;
            case Command::SortByAddress:
                Sort([&] { module_.form1.cmdEmail_Click(); });
                break;
            case Command::SortByNickname:
                Sort([&] { module_.form1.cmdNick_Click(); });
                break;
            case Command::Save:
                Save(step);
                break;
            case Command::Pim:
                ExportPim(step);
                break;
            case Command::Automation:
                RunAutomation();
                break;
        }
        TellNote();
    }

    [[nodiscard]] Status Result() const { return platform_.Result(); }

 private:
    template <class Act, class Writing>
    void Run(const Act& act, const Writing& writing) {
        try {
            TrapFailure(act,
                        [&](const RunTimeError& failure) { platform_.Fail(failure, writing()); });
        } catch (const ProgramEnded&) {
            // Of the window program: what ended it was told, and an automation may end it when it
            // is done.
        }
    }

    template <class Act>
    void Read(const Step& step, const Act& act) {
        platform_.BeginStep(DialogKind::Open, step.File, [&] { return Panel(); });
        Run(act, [] { return false; });
        if (module_.WorkText.empty() && Result() == Status::Done) {
            platform_.Fail("There are no entries now");
        }
    }

    void Save(const Step& step) {
        platform_.BeginStep(DialogKind::Save, step.File, [&] { return Panel(); });
        const Ending* const ending = FindEnding(step.File);
        if (module_.textSep == "," && ending != nullptr && ending->What == Format::Juno) {
            // The Juno writer would leave out every entry.
            platform_.Fail("A Juno book can only be saved with entries separated by newlines");
        } else {
            Run([&] { module_.form1.mnuSave_Click(); }, [] { return true; });
        }
    }

    template <class Act>
    void Sort(const Act& act) {
        platform_.BeginStep({}, {}, [&] { return Panel(); });
        Run(act, [] { return false; });
    }

    void ExportPim(const Step& step) {
        if (files_.IsSame(step.File, step.Output)) {
            platform_.BeginStep({}, step.Output, nullptr);
            platform_.Fail("A book cannot be exported over itself", Status::CannotCreate);
            return;
        }
        Form4& form = module_.form4;
        form.Text1.SetText(step.File);
        form.Text2.SetText(step.Output);
        bool writing = false;
        platform_.BeginStep({}, step.File, [&] {
            const int percent = static_cast<int>(form.Picture2.Width / Form4::kFullWidth * 100);
            return "Exporting: " + std::to_string(percent) + "%";
        });
        Run([&] { form.ConvertFile(writing); },
            [&] {
                if (writing) {
                    platform_.BeginStep({}, step.Output, nullptr);
                }
                return writing;
            });
    }

    void RunAutomation() {
        platform_.BeginStep({}, "automation", [&] { return Panel(); });
        Run([&] { module_.RunAutomation(); },
            [&] {
                const std::string step = std::to_string(module_.AutomationStep);
                const double code = module_.NumberOrZero(key::kSteps, step);
                const bool saves = code == step::kSaveCode;
                const bool reads = code == step::kOpenCode || code == step::kExtractCode;
                platform_.BeginStep({},
                                    saves   ? module_.Setting("aSaveName")
                                    : reads ? module_.Setting("aOpenName")
                                            : "automation, step " + step,
                                    {});
                return saves;
            });
    }

    // What was read by this step; the next one tells its own.
    void TellNote() {
        const std::string text = std::exchange(module_.Note, {}).Text();
        if (!text.empty()) {
            platform_.Note(text);
        }
    }

    [[nodiscard]] std::string Panel() const { return module_.form1.StatusBar1.Panels(1).Text; }

    FileSystem& files_;
    SettingsStore store_;
    BatchPlatform platform_;
    Program program_{platform_, files_};
    Module1& module_ = program_.module;
};

}  // namespace

Status RunSteps(const Arguments& arguments,
                cli::Messenger& messenger,
                FileSystem& files,
                const std::string& settings_file) {
    Runner runner(arguments, messenger, files, settings_file);
    runner.Start();
    for (const Step& step : arguments.Steps) {
        if (runner.Result() != Status::Done) {
            break;
        }
        runner.RunStep(step);
        messenger.EndStep();
    }
    return runner.Result();
}

}  // namespace orvik::batch
