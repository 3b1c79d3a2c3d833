// Runs a fuzz target over files and directories of inputs, once each, for
// builds without libFuzzer: the seed corpus becomes a plain test.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size);

namespace {

void RunFile(const std::filesystem::path &path) {
    std::ifstream in(path, std::ios::binary);
    const std::vector<char> bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    LLVMFuzzerTestOneInput(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char **argv) {
    int files = 0;
    for (int i = 1; i < argc; ++i) {
        std::error_code error;
        if (std::filesystem::is_directory(argv[i], error)) {
            for (const auto &entry : std::filesystem::directory_iterator(argv[i], error)) {
                if (!entry.is_regular_file(error)) continue;
                RunFile(entry.path());
                ++files;
            }
        } else {
            RunFile(argv[i]);
            ++files;
        }
    }
    std::printf("replayed %d inputs\n", files);
    return files > 0 ? 0 : 1;
}
