// Files that are damaged, that are none, or that change while they are read: an answer or a clear refusal, in time, and
// nothing left behind.

#include "sample_jet_files.h"

#include "support/random_numbers.h"
#include "support/sample_data.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <numeric>
#include <sys/stat.h>
#include <sys/wait.h>
#include <thread>
#include <utility>

namespace veldrane {
namespace {

namespace fs = std::filesystem;

using testing::BytesOf;
using ::testing::HasSubstr;
using testing::RandomNumbers;
using testing::RealJet;
using testing::SampleDataFolder;
using ::testing::StartsWith;

std::ptrdiff_t OpenFiles()
{
    return std::distance(fs::directory_iterator("/proc/self/fd"), fs::directory_iterator());
}

class DamagedJetFiles : public ::testing::Test
{
  protected:
    void TearDown() override
    {
        EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1) << "a child is left";
        EXPECT_EQ(errno, ECHILD);
        EXPECT_EQ(OpenFiles(), openFiles_);
        for (const fs::directory_entry& entry : fs::directory_iterator(folder_))
            EXPECT_TRUE(entry.path() == File) << entry.path() << " is left";
        fs::remove_all(folder_);
    }

    void Write(const std::string& bytes) const { std::ofstream(File, std::ios::binary) << bytes; }

    // Everything that a catalog can be asked; whether the file was read.
    bool ReadAll()
    {
        try {
            const auto catalog = jet_.Open(File);
            for (const CatalogTable& table : catalog->Tables()) {
                static_cast<void>(catalog->Indexes(table.Name));
                static_cast<void>(catalog->Keys(table.Name));
            }
            static_cast<void>(catalog->Procedures());
            return true;
        } catch (const DataSourceError& error) {
            EXPECT_EQ(error.Number, data_source_error::kFailed);
            EXPECT_THAT(error.Description(), HasSubstr("\"" + File + "\""));
            EXPECT_THAT(error.Description(), ::testing::Not(HasSubstr("can't be understood")));
            return false;
        }
    }

    [[nodiscard]] std::string Refusal() { return jet_.RefusalOf(File); }

  private:
    static fs::path MakeFolder()
    {
        std::string pattern = ::testing::TempDir() + "veldrane-XXXXXX";
        return mkdtemp(pattern.data());
    }

    const std::ptrdiff_t openFiles_ = OpenFiles();
    const fs::path folder_ = MakeFolder();
    RealJet jet_{std::chrono::seconds(2)};

  protected:
    const std::string File = (folder_ / "a.mdb").string();
};

// The bytes that RC4 makes of a key, to be put on a text.
std::string KeyStream(std::string_view key, std::size_t size)
{
    std::array<unsigned, 256> state{};
    std::iota(state.begin(), state.end(), 0U);
    unsigned j = 0;
    for (std::size_t i = 0; i < state.size(); ++i) {
        j = (j + state[i] + static_cast<unsigned char>(key[i % key.size()])) % 256;
        std::swap(state[i], state[j]);
    }
    std::string stream;
    j = 0;
    for (std::size_t i = 1; i <= size; ++i) {
        j = (j + state[i]) % 256;
        std::swap(state[i], state[j]);
        stream += static_cast<char>(state[(state[i] + state[j]) % 256]);
    }
    return stream;
}

// The first page of a Jet 4 file without a password, and no other. The part from 0x18 on is enciphered; all that it
// holds here is zeros.
std::string HeaderPage()
{
    constexpr std::size_t kEnciphered = 128;
    std::string page(4096, '\0');
    page.replace(0, 19, std::string("\0\1\0\0Standard Jet DB", 19));
    page[0x14] = 1;
    page.replace(0x18, kEnciphered, KeyStream("\xC7\xDA\x39\x6B", kEnciphered));
    return page;
}

void FlipBits(std::string& bytes, std::size_t flips, RandomNumbers& numbers)
{
    for (; flips > 0; --flips) {
        char& byte = bytes[numbers.Below(bytes.size())];
        byte = static_cast<char>(byte ^ (1 << numbers.Below(8)));
    }
}

TEST_F(DamagedJetFiles, ThatAreNoneAreNamed)
{
    EXPECT_THAT(Refusal(), StartsWith("There is no file \"" + File + "\""));
    for (const std::string bytes : {"", "just text\n", "Standard Jet DB"}) {
        Write(bytes);
        EXPECT_THAT(Refusal(), StartsWith("Unrecognized database format: \"" + File + "\" is no Jet file")) << bytes;
    }
    fs::remove(File);
    fs::create_directory(File);
    EXPECT_THAT(Refusal(), StartsWith("\"" + File + "\" is not a file"));
}

TEST_F(DamagedJetFiles, APipeIsRefusedAndNotWaitedFor)
{
    mkfifo(File.c_str(), 0666);
    EXPECT_THAT(Refusal(), StartsWith("\"" + File + "\" is not a file"));
}

TEST_F(DamagedJetFiles, AnEmptyFileOfManyPagesIsDamaged)
{
    Write(HeaderPage() + std::string(1U << 20U, '\0'));
    EXPECT_THAT(Refusal(), HasSubstr("is damaged"));
    Write(HeaderPage() + std::string(1U << 20U, '\xFF'));
    EXPECT_THAT(Refusal(), HasSubstr("is damaged"));
}

TEST_F(DamagedJetFiles, AHeaderCutAnywhereIsRefused)
{
    for (std::size_t size = 0; size < 4096; size += 64) {
        Write(HeaderPage().substr(0, size));
        EXPECT_THAT(Refusal(), HasSubstr(size < 0x15 ? "is no Jet file" : "is damaged")) << size;
    }
}

TEST_F(DamagedJetFiles, PagesOfChanceAreRefused)
{
    RandomNumbers numbers(4);
    for (int variant = 0; variant < 100; ++variant) {
        std::string bytes = HeaderPage();
        for (std::size_t left = 4096 * (1 + numbers.Below(6)); left > 0; --left)
            bytes += static_cast<char>(numbers.Below(256));
        Write(bytes);
        EXPECT_FALSE(ReadAll()) << variant;
    }
}

// Cut, or with bits flipped: a reader that runs away is bounded, so that few are enough to see it.
TEST_F(DamagedJetFiles, SampleFilesInAnyStateOfDamageEndInAnAnswerOrARefusal)
{
    if (SampleDataFolder("jet").empty())
        GTEST_SKIP() << testing::kNoSampleData;
    constexpr auto kFiles =
        std::to_array<const char*>({"adox_jet4", "queryTestV2003", "test2V1997", "compIndexTestV2003"});
    constexpr auto kFlips = std::to_array<std::size_t>({1, 20, 400});
    RandomNumbers numbers(7);
    int read = 0;
    for (int variant = 0; variant < 200; ++variant) {
        std::string bytes = BytesOf(SampleDataFolder("jet") + numbers.Pick(kFiles) + ".mdb");
        if (numbers.Below(3) == 0)
            bytes.resize(numbers.Below(bytes.size()));
        else
            FlipBits(bytes, numbers.Pick(kFlips), numbers);
        Write(bytes);
        read += ReadAll() ? 1 : 0;
    }
    EXPECT_GT(read, 0);
    EXPECT_LT(read, 200);
}

TEST_F(DamagedJetFiles, OneThatGrowsShrinksAndVanishesWhileItIsReadIsReadOrRefused)
{
    if (SampleDataFolder("jet").empty())
        GTEST_SKIP() << testing::kNoSampleData;
    const std::string whole = BytesOf(SampleDataFolder("jet") + "queryTestV2003.mdb");
    std::atomic<bool> done = false;
    std::thread writer([&] {
        RandomNumbers numbers(9);
        while (!done) {
            Write(whole.substr(0, numbers.Below(whole.size())));
            Write(whole + whole);
            std::error_code ignored;
            fs::remove(File, ignored);
            Write(whole);
        }
    });
    for (int time = 0; time < 60; ++time)
        static_cast<void>(ReadAll());
    done = true;
    writer.join();
    EXPECT_TRUE(ReadAll());
}

} // namespace
} // namespace veldrane
