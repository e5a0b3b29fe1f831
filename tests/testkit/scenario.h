// Runs the statements of one scenario.

#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/system_files.h"
#include "program/program.h"
#include "testkit/actor.h"
#include "testkit/scenario_platform.h"

namespace orvik::testkit {

class Scenario {
 public:
    // The scenario's files are those of the current folder. The program reaches them through files,
    // if given, which must outlive this.
    Scenario(ScenarioPlatform& platform, Actor& actor, FileSystem* files = nullptr);
    Scenario(const Scenario&) = delete;
    Scenario& operator=(const Scenario&) = delete;
    Scenario(Scenario&&) = delete;
    Scenario& operator=(Scenario&&) = delete;
    ~Scenario();

    // Runs one statement. Errors: ScenarioError.
    void Run(std::string_view line);

 private:
    using Words = std::vector<std::string>;
    struct Statement {
        std::string_view Name;
        std::size_t FewestWords;
        std::size_t MostWords;
        void (Scenario::*Run)(const Words& words);
        bool AfterTheEnd = false;
    };
    static const std::vector<Statement>& Statements();

    void RunWords(std::string_view line);
    void RunModal(const std::string& statements);
    void MakeProgram();
    Form& FindForm(std::string_view name);
    Form& LoadForm(std::string_view name);
    Target FindControl(std::string_view name);
    void RunHandler(std::string_view name);
    std::string Show(const std::string& item);

    // The world.
    void MakeFile(const Words& words);
    void MakeFolder(const Words& words);
    void StoreSetting(const Words& words);
    void StoreDefaults(const Words& words);
    void SetClipboard(const Words& words);
    void QueueAnswers(const Words& words);
    void QueuePicks(const Words& words);
    void QueueModal(const Words& words);
    void SetLinks(const Words& words);
    void Trace(const Words& words);
    // The acts.
    void Start(const Words& words);
    void SetControl(const Words& words);
    void SelectText(const Words& words);
    void TypeText(const Words& words);
    void ReleaseKey(const Words& words);
    void CloseForm(const Words& words);
    void ResizeForm(const Words& words);
    void ClickForm(const Words& words);
    void DoubleClick(const Words& words);
    void EditEntry(const Words& words);
    void DeleteEntries(const Words& words);
    void Undo(const Words& words);
    void Redo(const Words& words);
    void PutWork(const Words& words);
    void Call(const Words& words);
    // What can be seen.
    void ShowItems(const Words& words);
    void ShowSetting(const Words& words);
    void ShowFile(const Words& words);
    void ShowFiles(const Words& words);

    ScenarioPlatform& platform_;
    Actor& actor_;
    SystemFiles own_files_{false};
    FileSystem& files_;
    std::unique_ptr<Program> program_;
    bool trace_status_ = false;
};

}  // namespace orvik::testkit
