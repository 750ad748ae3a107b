#ifndef TESTS_ENGINE_TEMPORARYFILE_H
#define TESTS_ENGINE_TEMPORARYFILE_H

#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>

namespace testing_support
{

/// A path for a file that is removed at the end of the scope.
class TemporaryFile
{
public:
    explicit TemporaryFile(const std::string& name)
        : m_path((std::filesystem::temp_directory_path() /
                  (name + std::to_string(std::chrono::steady_clock::now().time_since_epoch().count())))
                     .string())
    {
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    ~TemporaryFile() { std::filesystem::remove(m_path); }
    const std::string& path() const { return m_path; }
    void write(const std::string& content) const { std::ofstream(m_path, std::ios::binary) << content; }

private:
    std::string m_path;
};

} // namespace testing_support

#endif
