// Failures: the sentences of their parts in both languages, the reasons of the system, and the place in a file.
#include "fea/record_file.h"
#include "model/field_reader.h"
#include "model/files.h"
#include "model/platform.h"
#include "model/store.h"
#include "model/write_file.h"
#include "support.h"

#include <cerrno>
#include <cstring>
#include <gtest/gtest.h>
#include <sstream>

namespace havuz {

static FailureParts AllParts() {
    return {.where = {{Thing::Plate, 3}, {Thing::MeshTable, 7}},
            .thing = Thing::NodeUnderWall,
            .number = 11,
            .first = 12,
            .bound = 13,
            .text = "/KLASOR/P.POL",
            .reason = EACCES};
}

// Words of a Turkish sentence that hold a small letter and are no name of the model, which both languages share.
static std::string EnglishIn(const RuntimeFailure &failure) {
    std::istringstream words(FailureInTurkish(failure));
    const std::string english = failure.what();
    std::string found;
    for (std::string word; words >> word;) {
        word.erase(word.find_last_not_of("():,") + 1);
        const bool small = word.find_first_of("abcdefghijklmnopqrstuvwxyz") != std::string::npos;
        const bool name =
            std::isupper(static_cast<unsigned char>(word[0])) != 0 && english.find(word) != std::string::npos;
        if (small && !name)
            found += word + " ";
    }
    return found;
}

TEST(Failure, EveryThingAndEveryFaultHasWordsInBothLanguages) {
    int things = 0, faults = 0;
    for (int t = 1; t < 256; ++t) {
        FailureParts parts{.fault = Fault::Unknown, .thing = static_cast<Thing>(t), .text = "9"};
        const RuntimeFailure failure(parts);
        if (std::string(failure.what()) == "no  9")
            break;
        ++things;
        EXPECT_EQ(EnglishIn(failure), "") << failure.what();
        EXPECT_EQ(FailureInTurkish(failure).find(":  "), std::string::npos) << failure.what();
    }
    for (int f = 0; f < 256; ++f) {
        FailureParts parts = AllParts();
        parts.fault = static_cast<Fault>(f);
        const RuntimeFailure failure(parts);
        const std::string turkish = FailureInTurkish(failure);
        if (std::string(failure.what()).empty())
            break;
        ++faults;
        EXPECT_EQ(EnglishIn(failure), "") << turkish;
        EXPECT_EQ((failure.what() + turkish).find('%'), std::string::npos) << turkish;
        for (const char *number : {"3", "11", "12", "13", "P.POL"}) // what one language tells the other tells as well
            EXPECT_EQ(std::string(failure.what()).find(number) == std::string::npos,
                      turkish.find(number) == std::string::npos)
                << number << " in " << failure.what() << " / " << turkish;
    }
    EXPECT_GE(things, 60);
    EXPECT_GE(faults, 37);
}

TEST(Failure, BothSentencesArePrintedFromTheParts) {
    const struct {
        FailureParts parts;
        FailureKind kind;
        std::string english, turkish;
    } cases[] = {
        {{.where = {{Thing::Plate, 3}, {Thing::Edge, 5}}, .thing = Thing::NodeUnderWall, .number = 1001, .bound = 1000},
         Subscript,
         "plate 3, edge 5: node under a wall(1001) lies outside 0..1000",
         "TABLO SINIRI ASILDI: PLAK 3, KENAR 5: DUVAR ALTI NOKTASI(1001) SINIR 0..1000"},
        {{.fault = Fault::NamesOutside, .where = {{Thing::MeshTable, 4}}, .number = 9, .first = 1, .bound = 8},
         Subscript,
         "MeshTable(4) names node 9 outside 1..8",
         "TABLO SINIRI ASILDI: MeshTable(4): NOKTA(9) SINIR 1..8"},
        {{.fault = Fault::NodeHeld,
          .where = {{Thing::Node, 5}},
          .thing = Thing::Rhs,
          .number = -2,
          .first = 2,
          .bound = 4},
         Subscript,
         "Rhs(-2): node 5 is held against translation and 4 load columns are asked for; it goes with 2 at most",
         "TABLO SINIRI ASILDI: Rhs(-2): NOKTA 5 MESNETLI, YUK KOLONU 4, SINIR 2"},
        {{.fault = Fault::ProfileTooLong, .number = 900, .first = 7, .bound = 6},
         Subscript,
         "900 equations with a profile of 7 cells: S ends at 6",
         "TABLO SINIRI ASILDI: 900 DENKLEM, PROFIL 7: S SINIR 6"},
        {{.fault = Fault::Past16Bits, .number = 99999.0},
         Overflow,
         "a 16-bit field cannot hold 99999",
         "SAYI ALANINA SIGMIYOR: 16 BITLIK ALANA SIGMAYAN SAYI 99999"},
        {{.fault = Fault::PictureTooLarge, .number = 70000, .bound = 9},
         Overflow,
         "a picture of 70000x9 pixels",
         "SAYI ALANINA SIGMIYOR: RESIM 70000X9"},
        {{.fault = Fault::NoPlanExtent, .where = {{Thing::Plate, 2}}},
         DivisionByZero,
         "plate 2: its outline has no width or no height in plan",
         "SIFIRA BOLME: PLAK 2: PLANDA GENISLIGI YA DA YUKSEKLIGI YOK"},
        {{.fault = Fault::NoLocalArea, .thing = Thing::QuadStress},
         DivisionByZero,
         "QuadShellStress: the corners span no local area in either order",
         "SIFIRA BOLME: DORTGEN GERILMESI: KOSELERIN ALANI YOK"},
        {{.fault = Fault::CannotWrite, .text = "/A/P.POL", .reason = ENOSPC},
         File,
         "/A/P.POL: cannot be written (No space left on device)",
         "DOSYA HATASI: /A/P.POL: YAZILAMADI (DISK DOLU)"},
        {{.fault = Fault::CannotOpen, .text = "P.POL", .reason = ENOTSUP},
         File,
         "P.POL: cannot be opened (" + std::string(std::strerror(ENOTSUP)) + ")",
         "DOSYA HATASI: P.POL: ACILAMADI (SISTEM HATASI " + std::to_string(ENOTSUP) + ")"},
        {{.fault = Fault::NoPicture}, File, "the picture cannot be made a PNG", "DOSYA HATASI: RESIM PNG YAPILAMADI"},
    };
    for (const auto &c : cases) {
        const RuntimeFailure failure(c.parts);
        EXPECT_EQ(failure.kind(), c.kind) << c.english;
        EXPECT_EQ(failure.what(), c.english);
        EXPECT_EQ(FailureInTurkish(failure), c.turkish);
    }
}

TEST(Failure, AFieldOfAFileIsNamedInBothLanguages) {
    FieldReader reader("X.POL", "title\r\n1,2x\r\n");
    try {
        reader.read([&] {
            reader.text("ProjeIsmi");
            reader.enterRecord(Thing::CardRecord, 4);
            reader.number("Nx");
            reader.number(Thing::Value);
        });
        FAIL();
    } catch (const RuntimeFailure &failure) {
        EXPECT_EQ(failure.kind(), BadNumber);
        EXPECT_STREQ(failure.what(), "X.POL: line 2, field 2 (record(4) value): \"2x\" is not a number");
        EXPECT_EQ(FailureInTurkish(failure), "SAYI DEGIL: X.POL: SATIR 2, ALAN 2 (KAYIT(4) DEGER): \"2x\"");
        ASSERT_TRUE(failure.parts().inFile);
        EXPECT_EQ(failure.parts().inFile->line, 2);
        EXPECT_EQ(failure.parts().text, "2x");
    }
}

// The full device and the unreadable file are the system's own.
TEST(Failure, TheReasonsOfTheSystemAreTold) {
    const TemporaryFolder folder;
    const std::string none = folder.file("none/P.POL"), whole = folder.file("P.POL");
    std::array<Float32, 1> record;
    WriteBytes(whole, "1");
    const struct {
        std::function<void()> job;
        std::string words;
    } cases[] = {
        {[&] { ReadWholeFile(none); }, none + ": cannot be opened (No such file or directory)"},
        {[&] { ReadWholeFile(whole + "/X"); }, whole + "/X: cannot be opened (Not a directory)"},
        {[&] { ReadWholeFile(folder.path()); }, folder.path() + ": is a directory"},
        {[&] { ReadWholeFile(platform::kNothing); }, platform::kNothing + std::string(": is no file of this program")},
#ifndef _WIN32
        {[&] { ReadWholeFile("/proc/self/mem"); }, "/proc/self/mem: cannot be read (Input/output error)"},
        {[&] { RecordFile("/dev/full", 4).PutRecord(record, 1); },
         "/dev/full: cannot be written (No space left on device)"},
#endif
        {[&] { WriteWholeFile(none, ""); }, none + ": cannot be created (No such file or directory)"},
        {[&] { WriteWholeFile(folder.path(), ""); }, folder.path() + ": is a directory"},
        {[&] { RecordFile(none, 4); }, none + ": cannot be opened (No such file or directory)"},
        {[&] { RecordFile(whole, 4).GetRecord(record, 7); }, whole + ": record 7 cannot be read"},
    };
    for (const auto &c : cases)
        EXPECT_EQ(FailureOf(c.job).words, c.words);
}

} // namespace havuz
