// Adding a set from a ZIP of about 100 MB with vellumar-cli import, the whole process, against
// unzip -q of the same archive into a folder on the same disk.

#include "BenchSupport.h"
#include "GeneratedLibrary.h"

#include <benchmark/benchmark.h>

#include <archive.h>
#include <archive_entry.h>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace vellumar::bench {
namespace {

namespace fs = std::filesystem;

struct ImportFixture {
    std::string home, zip, cloudIni, unzipTarget;
};

// 25 bitmaps of 4 MB: smooth skies with some grain, which compress as real ones do.
std::string SkyBytes(int seed)
{
    std::string bytes(4 << 20, '\0');
    unsigned state = static_cast<unsigned>(seed) * 2654435761u + 1;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        state = state * 1103515245 + 12345;
        bytes[i] = static_cast<char>((i / 4096 + seed * 7) % 256 + ((state >> 16) & 7));
    }
    return bytes;
}

const ImportFixture& Fixture()
{
    static const ImportFixture fixture = [] {
        ImportFixture made;
        const std::string folder = ScratchFolder() + "/import";
        made.home = GenerateLibrary(folder, 1, 1);
        made.zip = folder + "/Big sky.zip";
        made.unzipTarget = folder + "/unzipped";
        made.cloudIni = made.home + "/cloud.ini";
        archive* writer = archive_write_new();
        archive_write_set_format_zip(writer);
        archive_write_open_filename(writer, made.zip.c_str());
        for (int i = 0; i < 25; ++i) {
            const std::string bytes = SkyBytes(i);
            archive_entry* entry = archive_entry_new();
            const std::string name = "Big sky/cld" + std::to_string(i) + ".bmp";
            archive_entry_set_pathname(entry, name.c_str());
            archive_entry_set_filetype(entry, AE_IFREG);
            archive_entry_set_perm(entry, 0644);
            archive_entry_set_size(entry, static_cast<la_int64_t>(bytes.size()));
            archive_write_header(writer, entry);
            archive_write_data(writer, bytes.data(), bytes.size());
            archive_entry_free(entry);
        }
        archive_write_close(writer);
        archive_write_free(writer);
        return made;
    }();
    return fixture;
}

std::string Contents(const std::string& path)
{
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

void BM_CliImportZip100MB(benchmark::State& state)
{
    const ImportFixture& fixture = Fixture();
    const std::string cloudIni = Contents(fixture.cloudIni);
    const std::vector<std::string> environment = {
        "VELLUMAR_HOME=" + fixture.home, "WINEPREFIX=" + ScratchFolder() + "/import/prefix"};
    for (auto _ : state) {
        state.PauseTiming();
        fs::remove_all(fixture.home + "/Texture/Big sky");
        std::ofstream(fixture.cloudIni, std::ios::binary | std::ios::trunc) << cloudIni;
        state.ResumeTiming();
        if (!RunChecked(state, {VELLUMAR_CLI_PATH, "import", fixture.zip, "--yes"}, environment,
                        true))
            break;
    }
    fs::remove_all(fixture.home + "/Texture/Big sky");
    std::ofstream(fixture.cloudIni, std::ios::binary | std::ios::trunc) << cloudIni;
}
BENCHMARK(BM_CliImportZip100MB)->Unit(benchmark::kMillisecond)->UseRealTime();

void BM_UnzipZip100MB(benchmark::State& state)
{
    const ImportFixture& fixture = Fixture();
    for (auto _ : state) {
        state.PauseTiming();
        fs::remove_all(fixture.unzipTarget);
        state.ResumeTiming();
        if (!RunChecked(state, {"unzip", "-q", "-o", fixture.zip, "-d", fixture.unzipTarget}, {},
                        true))
            break;
    }
}
BENCHMARK(BM_UnzipZip100MB)->Unit(benchmark::kMillisecond)->UseRealTime();

const bool registered = [] {
    CompareWith("BM_CliImportZip100MB", "BM_UnzipZip100MB", 1.2);
    return true;
}();

} // namespace
} // namespace vellumar::bench
