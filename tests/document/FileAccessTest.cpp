// What the file system does to a load or a save: kinds of files, permissions, limits, links,
// write-protected and hard-linked targets, temporary files left by a killed save, and the check
// of the written file before it replaces the old one.
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "HardeningFixture.h"
#include "document/CFileBytes.h"
#include "document/CLayoutReader.h"
#include "document/CSaveTarget.h"
#include "document/SafeFileWriter.h"
#include "document/TempSaveFiles.h"

using namespace kavrin;
namespace fs = std::filesystem;

namespace {

class FileAccess : public test::LayoutFixture {
protected:
    std::string Sample() const { return test::ReadFile(test::SamplePath("Demo-Linien.anl3")); }
    // In a child process (a death test), after `prepare`: the errors of a load or save, on
    // standard error, where the test looks for them.
    static void PrintErrorsAndExit(const test::RecordingScope& scope) {
        for (const std::string& error : scope.ui.errors)
            std::fprintf(stderr, "%s\n", error.c_str());
        std::fflush(stderr);
        _exit(0);
    }
    // A child run as an ordinary user, for whom permissions count.
    static void BecomeOrdinaryUser() {
        if (geteuid() == 0 && (setgid(65534) != 0 || setuid(65534) != 0))
            _exit(3);
    }
};

TEST_F(FileAccess, EveryKindOfFileThatIsNoLayoutGetsItsOwnReason) {
    std::string fifo = dir.File("rohr");
    ASSERT_EQ(mkfifo(fifo.c_str(), 0600), 0);
    struct Case {
        std::string path;
        const char* reason;
    };
    const Case cases[] = {
        {dir.File("fehlt.anl3"), "existiert nicht"},
        {dir.Path().string(), "ist ein Ordner und keine Anlagen-Datei"},
        {"/dev/null", "ist ein Gerät und keine Anlagen-Datei"},
        {fifo, "ist eine benannte Pipe (FIFO) und keine Anlagen-Datei"}, // and nothing waits for a writer
    };
    for (const Case& c : cases) {
        scope.ui.errors.clear();
        EXPECT_FALSE(anlage.Load(c.path));
        ASSERT_EQ(scope.ui.errors.size(), 1u) << c.path;
        EXPECT_NE(scope.ui.errors[0].find(c.reason), std::string::npos) << scope.ui.errors[0];
        EXPECT_EQ(scope.ui.errors[0].find("keine Anlagen-Datei.%"), std::string::npos);
    }
}

TEST_F(FileAccess, MissingPermissionsAreNamed) {
    test::WriteFile(path, Sample());
    ASSERT_EQ(chmod(path.c_str(), 0), 0);
    ASSERT_EQ(chmod(dir.Path().c_str(), 0755), 0);
    EXPECT_EXIT(
        {
            BecomeOrdinaryUser();
            anlage.Load(path);
            PrintErrorsAndExit(scope);
        },
        ::testing::ExitedWithCode(0), "darf nicht gelesen werden: es fehlt die Leseberechtigung");
    ASSERT_EQ(chmod(dir.Path().c_str(), 0700), 0);
    if (geteuid() == 0) {
        EXPECT_EXIT(
            {
                BecomeOrdinaryUser();
                anlage.Load(path);
                PrintErrorsAndExit(scope);
            },
            ::testing::ExitedWithCode(0), "ist nicht erreichbar: .*Ordner fehlt die Berechtigung");
    }
}

#if defined(__SANITIZE_ADDRESS__)
#define KAVRIN_ADDRESS_SANITIZER 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KAVRIN_ADDRESS_SANITIZER 1
#endif
#endif

#ifndef KAVRIN_ADDRESS_SANITIZER
// (Under AddressSanitizer a limit of the address space cannot be set.)
TEST_F(FileAccess, RunningOutOfMemoryIsNamed) {
    // A sparse file of a gigabyte costs no disk, but needs the memory to be read.
    int fd = open(path.c_str(), O_CREAT | O_WRONLY, 0644);
    ASSERT_GE(fd, 0);
    ASSERT_EQ(ftruncate(fd, off_t(1) << 30), 0);
    close(fd);
    auto loadWithLittleMemory = [this] {
        rlimit limit{};
        limit.rlim_cur = limit.rlim_max = 512u << 20;
        setrlimit(RLIMIT_AS, &limit);
        anlage.Load(path);
        PrintErrorsAndExit(scope);
    };
    EXPECT_EXIT(loadWithLittleMemory(), ::testing::ExitedWithCode(0), "reicht der Arbeitsspeicher nicht");
}
#endif

TEST_F(FileAccess, AFileSizeLimitIsNamed) {
    std::string out = dir.File("gross.anl3");
    auto saveBeyondTheLimit = [this, &out] {
        std::signal(SIGXFSZ, SIG_IGN);
        if (!anlage.LoadFromMemory(Sample(), "Demo-Linien.anl3"))
            _exit(4);
        rlimit limit{};
        limit.rlim_cur = limit.rlim_max = 20000;
        setrlimit(RLIMIT_FSIZE, &limit);
        anlage.Save(out);
        PrintErrorsAndExit(scope);
    };
    EXPECT_EXIT(saveBeyondTheLimit(), ::testing::ExitedWithCode(0), "NICHT gespeichert.*Grenze der Dateigr");
    EXPECT_FALSE(fs::exists(out));
}

TEST_F(FileAccess, ASaveThroughASymbolicLinkWritesItsTarget) {
    fs::create_directories(dir.Path() / "echt");
    fs::create_directories(dir.Path() / "links");
    std::string target = dir.File("echt/Anlage.anl3");
    test::WriteFile(target, "alt");
    struct Case {
        const char* what;
        std::string link;
        fs::path pointsTo;
    };
    const Case cases[] = {
        {"absolute", dir.File("links/absolut.anl3"), target},
        {"relative", dir.File("links/relativ.anl3"), "../echt/Anlage.anl3"},
        {"link to a link", dir.File("links/kette.anl3"), "absolut.anl3"},
        {"dangling", dir.File("links/neu.anl3"), "../echt/Neu.anl3"},
    };
    ASSERT_TRUE(anlage.LoadFromMemory(Sample(), "Demo-Linien.anl3"));
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        fs::create_symlink(c.pointsTo, c.link);
        ASSERT_TRUE(anlage.Save(c.link)) << Errors();
        EXPECT_TRUE(fs::is_symlink(c.link));
        EXPECT_EQ(fs::read_symlink(c.link), c.pointsTo);
        fs::path written = fs::canonical(c.link);
        EXPECT_EQ(test::ReadFile(written.string()).substr(0, 5), "<?xml");
        EXPECT_EQ(anlage.FilePath(), c.link);
    }
    fs::create_symlink("schleife.anl3", dir.File("links/schleife.anl3"));
    EXPECT_FALSE(anlage.Save(dir.File("links/schleife.anl3")));
    EXPECT_NE(Errors().find("symbolische Verknüpfungen"), std::string::npos) << Errors();
}

TEST_F(FileAccess, AWriteProtectedFileIsReplacedOnlyWhenTheUserSaysSo) {
    test::WriteFile(path, "alt");
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    ASSERT_TRUE(anlage.LoadFromMemory(Sample(), "Demo-Linien.anl3"));
    scope.ui.answer = false;
    EXPECT_FALSE(anlage.Save(path));
    ASSERT_EQ(scope.ui.questions.size(), 1u);
    EXPECT_NE(scope.ui.questions[0].find("ist schreibgeschützt"), std::string::npos);
    EXPECT_EQ(test::ReadFile(path), "alt");
    EXPECT_TRUE(scope.ui.errors.empty());

    scope.ui.answer = true;
    EXPECT_TRUE(anlage.Save(path)) << Errors();
    EXPECT_EQ(test::ReadFile(path).substr(0, 5), "<?xml");
    struct stat info {};
    ASSERT_EQ(stat(path.c_str(), &info), 0);
    EXPECT_EQ(info.st_mode & 0777, 0444u); // still protected
}

TEST_F(FileAccess, OtherHardLinksKeepTheOldContentAndTheUserIsTold) {
    test::WriteFile(path, "alt");
    std::string other = dir.File("Zweitname.anl3");
    ASSERT_EQ(link(path.c_str(), other.c_str()), 0);
    ASSERT_TRUE(anlage.LoadFromMemory(Sample(), "Demo-Linien.anl3"));
    ASSERT_TRUE(anlage.Save(path));
    EXPECT_EQ(test::ReadFile(other), "alt");
    ASSERT_EQ(scope.ui.errors.size(), 1u); // the recording port keeps notices with the errors
    EXPECT_NE(scope.ui.errors[0].find("hat noch 1 weitere(n) Namen (harte Verknüpfungen)"),
              std::string::npos);
    EXPECT_NE(scope.ui.errors[0].find("steht weiterhin der alte Inhalt"), std::string::npos);
}

TEST_F(FileAccess, TemporaryFilesOfEndedSavesAreRemovedOthersStay) {
    pid_t child = fork();
    if (child == 0)
        _exit(0);
    ASSERT_GT(child, 0);
    waitpid(child, nullptr, 0);
    std::string own = TempSaveFilePattern(dir.Path().string());
    std::string ownPid = "-" + std::to_string(getpid()) + "-";
    std::string ended = own;
    ended.replace(ended.rfind(ownPid), ownPid.size(), "-" + std::to_string(child) + "-");
    std::string running = own;
    std::string otherHost =
        dir.File(".kavrin-speichern-anderer_rechner-" + std::to_string(child) + "-abcdef");
    std::string unrelated = dir.File(".kavrin-speichern-abcdef"); // no process named
    for (std::string* name : {&ended, &running})
        name->replace(name->size() - 6, 6, "abcdef");
    for (const std::string& name : {ended, running, otherHost, unrelated})
        test::WriteFile(name, std::string(1000, 'x'));

    ASSERT_TRUE(anlage.LoadFromMemory(Sample(), "Demo-Linien.anl3"));
    ASSERT_TRUE(anlage.Save(path));
    EXPECT_FALSE(fs::exists(ended));
    EXPECT_TRUE(fs::exists(running));
    EXPECT_TRUE(fs::exists(otherHost));
    EXPECT_TRUE(fs::exists(unrelated));
}

TEST_F(FileAccess, TheCheckOfAWrittenFileRefusesWhatALoadWouldRefuse) {
    std::string deep = "<a>";
    for (int i = 0; i < 500; ++i)
        deep += "<t>";
    for (int i = 0; i < 500; ++i)
        deep += "</t>";
    deep += "</a>";
    struct Case {
        std::string text;
        const char* problem; // empty: accepted
    };
    const Case cases[] = {
        {Sample(), ""},
        {test::LayoutText("<Notiz x=\"1\" y=\"2\" x=\"3\"/>"),
         "das Attribut 'x' steht mehrfach im Element 'Notiz'"},
        {test::LayoutText("<Notiz><!-- alt --></Notiz>"), "einen Eintrag, den das Laden ablehnt"},
        {test::LayoutText("<![CDATA[x]]>"), "einen Eintrag, den das Laden ablehnt"},
        {test::LayoutText(deep), "tiefer als 500 Ebenen"},
        {test::LayoutText("<Notiz>"), "kein wohlgeformtes XML"},
        {"<?xml version=\"1.0\"?>\n<sutrackp a=\"1\" a=\"1\"/>\n", "steht mehrfach im Element 'sutrackp'"},
    };
    for (const Case& c : cases) {
        CFileBytes bytes;
        bytes.Assign(c.text.data(), c.text.size());
        std::string problem;
        EXPECT_EQ(CLayoutReader::Check(bytes, problem), !*c.problem) << c.text.substr(0, 200);
        if (*c.problem)
            EXPECT_NE(problem.find(c.problem), std::string::npos) << problem;
        else
            EXPECT_EQ(problem, "");
    }
}

TEST_F(FileAccess, AFileTheCheckRefusesNeverReplacesTheOldOne) {
    test::WriteFile(path, "alt");
    try {
        CSaveTarget target(path);
        SafeFileWriter file(target);
        std::fputs("neu", file.Handle());
        file.Commit([](const std::string&, std::string& problem) {
            problem = "geprüft";
            return false;
        });
        FAIL() << "the commit went through";
    } catch (const CError& e) {
        EXPECT_NE(e.Description().find("ließe sich nicht wieder laden: geprüft"), std::string::npos);
    }
    EXPECT_EQ(test::ReadFile(path), "alt");
    for (const auto& entry : fs::directory_iterator(dir.Path()))
        EXPECT_EQ(entry.path().filename().string().rfind(".kavrin", 0), std::string::npos) << entry.path();
}

} // namespace
