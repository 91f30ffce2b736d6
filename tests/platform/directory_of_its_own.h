#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <string>

namespace qz::test {

/// An empty directory for each test, gone afterwards. The working directory stays what it was.
class DirectoryOfItsOwn : public testing::Test {
protected:
    DirectoryOfItsOwn()
    {
        const std::string name = "qz-platform-" + std::to_string(std::random_device()());
        root_ = std::filesystem::temp_directory_path() / name;
        std::filesystem::create_directory(root_);
    }

    ~DirectoryOfItsOwn() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(root_, ignored);
    }

    std::string path(const std::string &name) const { return root_.string() + "/" + name; }

    bool is_there(const std::string &name) const { return std::filesystem::exists(path(name)); }

    void write(const std::string &name, const std::string &bytes) const
    {
        std::ofstream(path(name), std::ios::binary) << bytes;
    }

    std::string read(const std::string &name) const
    {
        std::ifstream file(path(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    std::filesystem::path root_;
};

} // namespace qz::test
