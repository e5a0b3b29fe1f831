#include "testkit/calls.h"

#include <algorithm>

#include "testkit/statement.h"
#include "testkit/transcript.h"

namespace orvik::testkit {
namespace {

using Arguments = std::vector<std::string>;

// A procedure without arguments or result.
Procedure Plain(std::string_view name, const std::function<void(Module1&)>& run) {
    return {name, 0, 0, [run](Module1& m, const Arguments&) -> std::optional<std::string> {
                run(m);
                return std::nullopt;
            }};
}

// A procedure that takes a file's name.
Procedure WithName(std::string_view name, void (Module1::*run)(const std::string&)) {
    return {name, 1, 1, [run](Module1& m, const Arguments& a) -> std::optional<std::string> {
                (m.*run)(a[0]);
                return std::nullopt;
            }};
}

const std::vector<Procedure>& Procedures() {
    static const std::vector<Procedure> kProcedures = {
        {"SplitEntries",
         1,
         2,
         [](Module1& m, const Arguments& a) {
             return std::optional(Quote(m.SplitEntries(a[0], a.size() > 1 ? a[1] : "txt")));
         }},
        {"Convert",
         1,
         1,
         [](Module1& m, const Arguments& a) -> std::optional<std::string> {
             SharedText text = a[0];
             m.form1.Convert(text);
             return std::nullopt;
         }},
        {"HelpFilePath",
         1,
         1,
         [](Module1& m, const Arguments& a) {
             return std::optional(Quote(m.HelpFilePath(static_cast<int>(ParseNumber(a[0])))));
         }},
        {"Net3",
         1,
         1,
         [](Module1& m, const Arguments& a) {
             SharedText text = a[0];
             return std::optional(Quote(m.form1.Net3(text)));
         }},
        {"UnNet3",
         1,
         1,
         [](Module1& m, const Arguments& a) { return std::optional(Quote(m.form1.UnNet3(a[0]))); }},
        {"JunoText",
         1,
         1,
         [](Module1& m, const Arguments& a) {
             SharedText text = a[0];
             return std::optional(Quote(m.JunoText(text)));
         }},
        {"ReadJuno",
         1,
         1,
         [](Module1& m, const Arguments& a) { return std::optional(Quote(m.ReadJuno(a[0]))); }},
        {"MergeLdif",
         2,
         2,
         [](Module1& m, const Arguments& a) -> std::optional<std::string> {
             SharedText old_text = a[0];
             SharedText new_text = a[1];
             m.MergeLdif(old_text, new_text);
             return std::nullopt;
         }},
        {"ScanAddresses",
         4,
         4,
         [](Module1& m, const Arguments& a) {
             std::string found = a[0];
             m.ScanAddresses(found, a[1], ParseCount(a[2]), ParseCount(a[3]));
             return std::optional(Quote(found));
         }},
        {"ExtractFromFile",
         1,
         1,
         [](Module1& m, const Arguments& a) -> std::optional<std::string> {
             m.form1.CommonDialog1.FileName = a[0];
             m.ExtractFromFile();
             return std::nullopt;
         }},
        Plain("RefreshLists", [](Module1& m) { m.RefreshLists(); }),
        Plain("unconvert", [](Module1& m) { m.form1.unconvert(); }),
        Plain("ReadCsv", [](Module1& m) { m.ReadCsv(); }),
        Plain("ReadWordPerfect", [](Module1& m) { m.ReadWordPerfect(); }),
        Plain("OpenNetscape3", [](Module1& m) { m.OpenNetscape3(); }),
        Plain("OpenNetscape4", [](Module1& m) { m.OpenNetscape4(); }),
        Plain("OpenTextList", [](Module1& m) { m.OpenTextList(); }),
        Plain("OpenCsv", [](Module1& m) { m.OpenCsv(); }),
        Plain("OpenWordPerfect", [](Module1& m) { m.OpenWordPerfect(); }),
        Plain("OpenJuno", [](Module1& m) { m.OpenJuno(); }),
        Plain("OpenPegasus", [](Module1& m) { m.OpenPegasus(); }),
        Plain("OpenAliasFile", [](Module1& m) { m.OpenAliasFile(); }),
        Plain("SortByAddress", [](Module1& m) { m.SortByAddress(); }),
        Plain("SortByNickname", [](Module1& m) { m.SortByNickname(); }),
        Plain("RemoveDuplicates", [](Module1& m) { m.RemoveDuplicates(); }),
        Plain("ListSelected", [](Module1& m) { m.ListSelected(); }),
        Plain("RunAutomation", [](Module1& m) { m.RunAutomation(); }),
        Plain("SetUpDemoAutomation", [](Module1& m) { m.SetUpDemoAutomation(); }),
        WithName("AutoOpenFile", &Module1::AutoOpenFile),
        WithName("AutoSaveFile", &Module1::AutoSaveFile),
        WithName("AutoExtractFile", &Module1::AutoExtractFile),
        Plain("LoadSettings", [](Module1& m) { m.LoadSettings(); }),
    };
    return kProcedures;
}

}  // namespace

const Procedure& FindProcedure(std::string_view name, std::size_t arguments) {
    const std::vector<Procedure>& all = Procedures();
    const auto found = std::find_if(
        all.begin(), all.end(), [&](const Procedure& known) { return known.Name == name; });
    if (found == all.end()) {
        throw ScenarioError("unknown procedure " + std::string(name));
    }
    if (arguments < found->FewestArguments || arguments > found->MostArguments) {
        throw ScenarioError("wrong number of arguments for " + std::string(name));
    }
    return *found;
}

}  // namespace orvik::testkit
