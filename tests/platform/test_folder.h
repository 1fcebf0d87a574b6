/// A folder of a test's own, gone with it, and small helpers to fill it and look into it.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>

class test_folder : public testing::Test
{
protected:
    test_folder()
    {
        char name[] = "/tmp/zentro-test-XXXXXX";
        if (mkdtemp(name) == nullptr)
            abort();
        folder = name;
    }
    ~test_folder() override { std::filesystem::remove_all(folder); }

    std::string path(const std::string &name) const { return folder + "/" + name; }
    std::string write(const std::string &name, const std::string &text) const
    {
        std::ofstream(path(name), std::ios::binary) << text;
        return path(name);
    }
    static std::string contents(const std::string &file)
    {
        std::ifstream opened(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(opened), {}};
    }
    /// How many entries stand in a folder: nothing may be left lying about.
    static long entries(const std::string &where)
    {
        return std::distance(std::filesystem::directory_iterator(where), std::filesystem::directory_iterator());
    }

    std::string folder;
};

/// An environment variable for the length of a test.
class variable
{
public:
    variable(const char *name_, const std::string &value) : name(name_) { setenv(name, value.c_str(), 1); }
    ~variable() { unsetenv(name); }
    variable(const variable &) = delete;
    variable &operator=(const variable &) = delete;

private:
    const char *name;
};
