// Scripts as a shell sees them: each example runs to its end, wrong words and failed expectations end with file and
// line, a failure inside a handler leaves the recovery file and the next start tells of it.
#include "support.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <vector>

namespace havuz {

namespace {

namespace fs = std::filesystem;

struct Ended {
    int status = -1;
    std::string out, error;
};

// Runs a script file in the folder.
Ended Play(const TemporaryFolder &folder, const std::string &file, const std::string &options = "") {
    const std::string command =
        "cd " + folder.path() + " && " + HAVUZ_CLI + " script " + file + " " + options + " >out 2>error";
    const int status = std::system(command.c_str());
    return {WEXITSTATUS(status), ReadBytes(folder.file("out")), ReadBytes(folder.file("error"))};
}

Ended PlayText(const TemporaryFolder &folder, const std::string &text, const std::string &options = "") {
    WriteBytes(folder.file("s.txt"), text);
    return Play(folder, "s.txt", options);
}

const fs::path kExamples = fs::path(HAVUZ_SOURCE_DIR) / "examples";

std::vector<std::string> ExampleScripts() {
    std::vector<std::string> names;
    for (const auto &entry : fs::directory_iterator(kExamples / "scripts"))
        if (entry.path().extension() == ".txt")
            names.push_back(entry.path().stem().string());
    std::sort(names.begin(), names.end());
    return names;
}

std::string TestName(const testing::TestParamInfo<std::string> &example) {
    std::string name = example.param;
    std::replace(name.begin(), name.end(), '-', '_');
    return name;
}

} // namespace

class ScriptExample : public testing::TestWithParam<std::string> {};

// A script that works on a project says so in its first line: "# project NAME.POL", one of the sample projects.
TEST_P(ScriptExample, RunsToItsEnd) {
    const TemporaryFolder folder;
    const std::string script = (kExamples / "scripts" / (GetParam() + ".txt")).string();
    const std::string text = ReadBytes(script), mark = "# project ";
    std::string options;
    if (text.rfind(mark, 0) == 0) {
        const std::string project = text.substr(mark.size(), text.find('\n') - mark.size());
        fs::copy_file(kExamples / project, folder.file(project));
        options = "--project " + project;
    }
    const Ended ended = Play(folder, script, options);
    EXPECT_EQ(ended.status, 0) << ended.error;
    EXPECT_EQ(ended.error, "");
    EXPECT_NE(text.find("\nexpect "), std::string::npos) << "an example tells what is to be seen";
}

INSTANTIATE_TEST_SUITE_P(Examples, ScriptExample, testing::ValuesIn(ExampleScripts()), TestName);

TEST(Script, WrongWordsEndWithFileAndLine) {
    const TemporaryFolder folder;
    const std::pair<const char *, const char *> cases[] = {
        {"clik ChkButton 4", "\"clik\" is no word of the language"},
        {"click ChkButton", "INDEX is missing"},
        {"click ChkButton 14", "there is no MAIN ChkButton 14"},
        {"click \"no such tool\"", "there is no MAIN \"no such tool\""},
        {"click ChkButton 4 5", "\"5\" is one word too many"},
        {"click \"auto mesh", "a quote is not closed"},
        {"click \"auto\"mesh", "a blank is missing behind a quote"},
        {"press 10 20", "left or right is missing"},
        {"press left 10 y", "\"y\" is not a number"},
        {"key Tab", "there is no key Tab"},
        {"expect weather fine", "\"weather\" is nothing that can be asked"},
        {"expect model Xyz 1", "\"Xyz\" is no parameter or field of the model"},
        {"expect state Armed 1", "\"Armed\" is none of these values"},
        {"scroll NOFORM 3", "there is no form NOFORM"},
    };
    for (const auto &[line, words] : cases) {
        const Ended ended = PlayText(folder, std::string("# first\n") + line + "\n");
        EXPECT_EQ(ended.status, 2) << line;
        EXPECT_EQ(ended.error.rfind(std::string("havuz-cli: s.txt:2: "), 0), 0U) << ended.error;
        EXPECT_NE(ended.error.find(words), std::string::npos) << ended.error;
        EXPECT_EQ(std::count(ended.error.begin(), ended.error.end(), '\n'), 1);
    }
    // a wrong verb is found before anything runs
    EXPECT_EQ(PlayText(folder, "print prompt\nprimt prompt\n").out, "");
    EXPECT_EQ(PlayText(folder, "print prompt\n", "--project P.TXT").status, 2);
}

TEST(Script, WhatDoesNotHoldEndsWithFileAndLine) {
    const TemporaryFolder folder;
    const std::pair<const char *, const char *> cases[] = {
        {"expect count meshes 1", "expected \"1\", got \"0\""},
        {"expect model ZeminKo 2000.1", "expected \"2000.1\", got \"2000\""},
        {"expect prompt ZOOM", "expected \"ZOOM\", got \"\""},
        {"expect end", "the program has not ended"},
        {"click ChkButton 7", "MAIN ChkButton 7 cannot be reached"}, // disabled
        {"click Check1 0", "MAIN Check1 0 cannot be reached"},       // its panel is hidden
        {"move node 1", "there is no node 1"},
        {"key Enter", "no element has the focus"},
        {"save no/such/folder/P.POL", "no/such/folder/P.POL"},
        {"expect model \"X(1)\" 0", "NoktaTable(1) lies outside 1..0"},
    };
    for (const auto &[line, words] : cases) {
        const Ended ended = PlayText(folder, std::string("\n") + line + "\nprint state\n");
        EXPECT_EQ(ended.status, 1) << line << ended.error;
        EXPECT_EQ(ended.error.rfind("havuz-cli: s.txt:2: ", 0), 0U) << ended.error;
        EXPECT_NE(ended.error.find(words), std::string::npos) << ended.error;
        EXPECT_EQ(ended.out, ""); // nothing runs after it
    }
    EXPECT_EQ(Play(folder, "none.txt").status, 1);
    EXPECT_EQ(PlayText(folder, "print prompt\n", "--project none.POL").status, 1);
}

TEST(Script, WordsQuotesAndComments) {
    const TemporaryFolder folder;
    const Ended ended = PlayText(folder, "click \"zoom win\"# not a comment\n");
    EXPECT_EQ(ended.status, 2);
    const Ended said = PlayText(folder, "click \"zoom win\"   # a comment\r\n\tprint prompt\r\nclick Check2 6\n"
                                        "field Tool1 Tex 0 \"2 \"\"#\"\nprint field Tool1 \"dp (cm)\"");
    EXPECT_EQ(said.status, 0) << said.error;
    EXPECT_EQ(said.out, "ZOOM WINDOW ICIN 1. NOKTAYI SECIN\n2 \"#\n");
}

// Text that is no number reads as 0; a number that no field can hold ends the program.
TEST(Script, AFailureInsideAHandlerLeavesTheModel) {
    const TemporaryFolder folder;
    fs::copy_file(kExamples / "sample_pool.POL", folder.file("P.POL"));
    const std::string before = ReadBytes(folder.file("P.POL"));
    const Ended ended = PlayText(folder,
                                 "click \"panel bilgisi\"\nfield FEAPLAK D 0 abc\nkey Down\nexpect model D(1) 0\n"
                                 "field FEAPLAK Nx 1 99999\nkey Down\nprint prompt\n",
                                 "--project P.POL");
    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.out, "");
    EXPECT_EQ(ended.error.rfind("havuz-cli: s.txt:6: the program ended: ", 0), 0U) << ended.error;
    EXPECT_NE(ended.error.find("KURTARMA.POL"), std::string::npos) << ended.error;
    EXPECT_EQ(ReadBytes(folder.file("P.POL")), before);
    const Ended next = PlayText(folder, "print prompt\n");
    EXPECT_EQ(next.out, "ONCEKI CALISMA HATA ILE SONLANDI, MODEL KURTARMA.POL DOSYASINDA\n") << next.error;
    EXPECT_EQ(PlayText(folder, "expect count nodes 194\n", "--project KURTARMA.POL").status, 0);
}

// The output program of a results button ends the program: what follows is left out, or told of.
TEST(Script, TheEndOfTheProgram) {
    const TemporaryFolder folder;
    fs::copy_file(kExamples / "sample_pool.POL", folder.file("P.POL"));
    WriteBytes(folder.file("P.SON"), "x");
    const std::string results = "click \"analiz sonuclari\"\n", project = "--project P.POL";
    const Ended silent = PlayText(folder, results + "click \"zoom all\"\nprint prompt\n", project);
    EXPECT_EQ(silent.status, 0) << silent.error;
    EXPECT_EQ(silent.out, "");
    const Ended told = PlayText(folder, results + "expect end\nprint started\n", project);
    EXPECT_EQ(told.status, 0) << told.error;
    EXPECT_EQ(told.out, "RAPORCU.EXE P\n");
    const Ended late = PlayText(folder, results + "print prompt\nexpect end\n", project);
    EXPECT_EQ(late.status, 1);
    EXPECT_NE(late.error.find("s.txt:2: not reached: the program ended in line 1"), std::string::npos) << late.error;
    const Ended after = PlayText(folder, results + "expect end\nclick \"zoom all\"\n", project);
    EXPECT_NE(after.error.find("s.txt:3: not reached"), std::string::npos) << after.error;
}

} // namespace havuz
