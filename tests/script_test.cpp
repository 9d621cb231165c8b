// Scripts as a shell sees them: each example runs to its end, wrong words and failed expectations end with file and
// line, a command that fails changes nothing and is told of.
#include "cli_support.h"

#include <algorithm>
#include <filesystem>
#include <gtest/gtest.h>
#include <map>
#include <random>
#include <vector>

namespace havuz {

namespace {

namespace fs = std::filesystem;

// Runs a script file in the folder.
Ended Play(const TemporaryFolder &folder, const std::string &file, const std::string &options = "") {
    const int status = CliStatus(folder, "script " + file + " " + options);
    return {status, ReadBytes(folder.file("out")), ReadBytes(folder.file("error"))};
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

// What two folders hold, but for pictures and for the path of the folder itself.
std::map<std::string, std::string> Files(const TemporaryFolder &folder) {
    std::map<std::string, std::string> files;
    for (const auto &entry : fs::directory_iterator(folder.path()))
        if (entry.path().extension() != ".png") {
            std::string bytes = ReadBytes(entry.path().string());
            for (std::size_t at = 0; (at = bytes.find(folder.path(), at)) != std::string::npos;)
                bytes.erase(at, folder.path().size());
            files[entry.path().filename().string()] = bytes;
        }
    return files;
}

// A script that works on a project says so in its first line: "# project NAME.POL", one of the sample projects. Its
// record leaves the same files, the model among them, when it is played again.
TEST_P(ScriptExample, RunsToItsEndAndIsPlayedAgain) {
    const TemporaryFolder scripts, first, second;
    std::string text = ReadBytes((kExamples / "scripts" / (GetParam() + ".txt")).string()), options;
    const std::string mark = "# project ";
    if (text.rfind(mark, 0) == 0) {
        const std::string project = text.substr(mark.size(), text.find('\n') - mark.size());
        for (const TemporaryFolder *folder : {&first, &second})
            fs::copy_file(kExamples / project, folder->file(project));
        options = "--project " + project;
    }
    if (text.find("\nexpect end") == std::string::npos)
        text += "\nsave END.POL\n";
    WriteBytes(scripts.file("s.txt"), text);
    const std::string record = scripts.file("record.txt");
    const Ended ended = Play(first, scripts.file("s.txt"), options + " --record " + record);
    EXPECT_EQ(ended.status, 0) << ended.error;
    EXPECT_EQ(ended.error, "");
    EXPECT_NE(text.find("\nexpect "), std::string::npos) << "an example tells what is to be seen";
    WriteBytes(first.file("out"), ""); // only the script asks
    const Ended again = Play(second, record, options);
    EXPECT_EQ(again.status, 0) << again.error << ReadBytes(record);
    EXPECT_EQ(Files(first), Files(second)) << ReadBytes(record);
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
        {"press 10 20", "left, right or middle is missing"},
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

// The acts of a desktop that no example has, and their record word by word.
TEST(Script, CaretSizeAndDroppedProjects) {
    const TemporaryFolder folder;
    fs::copy_file(kExamples / "sample_pool.POL", folder.file("P.POL"));
    const std::string acts =
        "surface 700 500\nopen P.POL\nclick MAIN ChkButton 6\nfield KOORBIL X 0 12,5\nselect KOORBIL X 0 1 0\n"
        "key KOORBIL X 0 Left\n";
    const Ended ended = PlayText(folder,
                                 acts + "expect focus \"KOORBIL X 0\"\nkey Left\nkey Right\nkey Right\n"
                                        "expect focus \"KOORBIL X 0\"\nexpect count nodes 194\npicture S.png\n",
                                 "--record record.txt");
    EXPECT_EQ(ended.status, 0) << ended.error;
    const std::string png = ReadBytes(folder.file("S.png"));
    ASSERT_GT(png.size(), 24U);
    EXPECT_EQ(png.substr(16, 8), std::string("\0\0\2\xBC\0\0\1\xF4", 8)); // width and height
    EXPECT_EQ(ReadBytes(folder.file("record.txt")).rfind("# no project\nsurface 1010 600\n" + acts, 0), 0U)
        << ReadBytes(folder.file("record.txt"));
    EXPECT_EQ(PlayText(folder, "surface 0 10\n").status, 1);
    EXPECT_EQ(PlayText(folder, "select ChkButton 1 0 0\n").status, 1);
    const Ended unwritten = PlayText(folder, "print state\n", "--record no/such/record.txt");
    EXPECT_EQ(unwritten.status, 1);
    EXPECT_EQ(unwritten.out, ""); // not played
}

// Text that is no number reads as 0; a number that no field can hold fails, and the script plays on.
TEST(Script, AFailedCommandChangesNothingAndTheScriptPlaysOn) {
    const TemporaryFolder folder;
    fs::copy_file(kExamples / "sample_pool.POL", folder.file("P.POL"));
    const std::string before = ReadBytes(folder.file("P.POL"));
    const std::string fails = "click \"panel bilgisi\"\nfield FEAPLAK D 0 abc\nkey Down\nexpect model D(1) 0\n"
                              "field FEAPLAK Nx 1 99999\nkey Down\n";
    const std::string after = "print prompt\nprint field FEAPLAK Nx 1\nclose FEAPLAK\nundo\nprint model D(1)\nredo\n"
                              "print model D(1)\n";
    const Ended unnamed = PlayText(folder, fails + after, "--project P.POL");
    EXPECT_EQ(unnamed.status, 1);
    EXPECT_EQ(unnamed.error.rfind("havuz-cli: s.txt:6: ", 0), 0U) << unnamed.error;
    EXPECT_NE(unnamed.error.find("1 of its commands failed"), std::string::npos) << unnamed.error;
    const Ended named = PlayText(folder, fails + "expect failure 99999\n" + after, "--project P.POL");
    EXPECT_EQ(named.status, 0) << named.error;
    EXPECT_EQ(named.error, "");
    EXPECT_EQ(named.out, unnamed.out);
    EXPECT_EQ(named.out.rfind("PANEL BILGISI YAPILAMADI, ", 0), 0U) << named.out;
    EXPECT_NE(named.out.find("\n5\n30\n0\n"), std::string::npos) << named.out;
    EXPECT_EQ(ReadBytes(folder.file("P.POL")), before);
    const Ended wrong = PlayText(folder, "click \"zoom all\"\nexpect failure\n", "--project P.POL");
    EXPECT_EQ(wrong.status, 1);
    EXPECT_EQ(PlayText(folder, fails + "expect failure \"no such words\"\n", "--project P.POL").status, 1);
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

// A record

namespace {

// A pointer that wanders over the drawing, picks, drags and turns the wheel in the commands of one group of tools.
class Wandering {
public:
    Wandering(unsigned seed, std::string tools, std::vector<int> commands)
        : random_(seed), tools_(std::move(tools)), commands_(std::move(commands)) {}

    std::string script(int acts) {
        while (acts-- > 0)
            text_ += act() + "\n";
        return text_;
    }

private:
    int upTo(int n) { return static_cast<int>(random_() % static_cast<unsigned>(n)); }
    std::string half(int n) {
        const int twice = upTo(n);
        return std::to_string(twice / 2) + (twice % 2 == 0 ? "" : ",5");
    }
    // Where corners, edges and nodes lie, or beside them.
    std::string place() { return place_ = "at " + half(21) + " " + half(11); }
    std::string tool() {
        return std::to_string(commands_[static_cast<std::size_t>(upTo(static_cast<int>(commands_.size())))]);
    }

    std::string act() {
        const int n = upTo(40);
        if (n < 2)
            return "click MAIN " + tools_ + " " + tool();
        if (n < 3)
            return "click \"zoom win\"";
        if (n < 4)
            return "release right " + place_;
        if (n < 6)
            return "wheel " + std::to_string(upTo(5) - 2) + " 300 200";
        if (n < 8)
            return "pan " + std::to_string(upTo(41) - 20) + ".25 7";
        if (n < 14)
            return "press left " + place_;
        if (n < 18)
            return "move left " + place_;
        return n < 20 ? "move left " + place() : n < 24 ? "move " + place_ : "move " + place();
    }

    std::minstd_rand random_;
    std::string tools_, text_, place_ = "100 100";
    std::vector<int> commands_;
};

int Moves(const std::string &script) {
    int moves = 0;
    for (std::size_t at = 0; (at = script.find("\nmove ", at)) != std::string::npos; ++at)
        ++moves;
    return moves;
}

} // namespace

// What the record leaves out of the pointer's way changes neither the model nor the picture. Of sixty ways these two
// tell most of what may be left out.
TEST(Script, AWanderingPointerIsPlayedAgain) {
    const struct {
        const char *begin, *tools;
        std::vector<int> commands;
    } groups[] = {{"click \"izometrik gorunus\"\nclick \"plak/mesh\"\n", "Check2", {0, 1, 3, 4, 5, 7}},
                  {"click \"plak/mesh\"\n", "Check2", {2, 3, 4}},
                  {"click \"izometrik gorunus\"\n", "Check1", {2, 3, 4}}};
    for (const auto &group : groups)
        for (const unsigned seed : {28U, 38U}) {
            SCOPED_TRACE(testing::Message() << group.begin << seed);
            const TemporaryFolder folder;
            fs::copy_file(kExamples / "sample_pool.POL", folder.file("P.POL"));
            const std::string script = group.begin + Wandering(seed, group.tools, group.commands).script(300);
            const std::string end = "print state\npicture P.png\nsave END.POL\n";
            const Ended first = PlayText(folder, script + end, "--project P.POL --record record.txt");
            EXPECT_EQ(first.status, 0) << first.error;
            const std::string model = ReadBytes(folder.file("END.POL")), picture = ReadBytes(folder.file("P.png"));
            std::string record = ReadBytes(folder.file("record.txt"));
            record.erase(record.rfind("save "));
            const Ended second = PlayText(folder, record + end, "--project P.POL");
            EXPECT_EQ(second.status, 0) << second.error;
            EXPECT_EQ(second.out, first.out);
            EXPECT_TRUE(ReadBytes(folder.file("P.png")) == picture);
            EXPECT_EQ(ReadBytes(folder.file("END.POL")), model);
            EXPECT_LT(Moves(record), Moves(script));
        }
}

} // namespace havuz
