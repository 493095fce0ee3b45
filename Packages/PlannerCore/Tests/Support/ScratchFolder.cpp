#include "ScratchFolder.h"

#include <cerrno>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

ScratchFolder::ScratchFolder() : ScratchFolder(std::filesystem::temp_directory_path()) {}

ScratchFolder::ScratchFolder(const std::filesystem::path& parent) {
    auto name = (parent / "planner-test-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::system_error(errno, std::generic_category(), name);
    path_ = name;
}

ScratchFolder::~ScratchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string fileBytes(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file) throw std::runtime_error("cannot read " + path.string());
    return {std::istreambuf_iterator<char>(file), {}};
}

void writeFile(const std::filesystem::path& path, const std::string& bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    if (!file.write(bytes.data(), std::streamsize(bytes.size())).flush())
        throw std::runtime_error("cannot write " + path.string());
}

std::map<std::string, std::string> filesIn(const std::filesystem::path& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.is_regular_file() && !entry.path().string().ends_with("-shm"))
            files[entry.path().filename()] = fileBytes(entry.path());
    return files;
}

std::set<std::string> namesIn(const std::filesystem::path& folder) {
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.insert(entry.path().filename());
    return names;
}
