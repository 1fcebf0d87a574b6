/// A folder of a test's own, gone with it, and small helpers to fill it and look into it.
#pragma once

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

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

    /// Bytes that differ from block to block.
    static std::string pattern(size_t length, unsigned seed)
    {
        std::string text(length, '\0');
        for (size_t n = 0; n < length; ++n)
            text[n] = char(seed + n * 13 + n / 251);
        return text;
    }

    std::string folder;
};

/// In a process of its own, whose files cannot grow beyond `limit`.
bool holds_with_file_limit(rlim_t limit, const auto &claim)
{
    const pid_t child = fork();
    if (child == 0) {
        signal(SIGXFSZ, SIG_IGN);
        const rlimit both{limit, limit};
        setrlimit(RLIMIT_FSIZE, &both);
        _exit(claim() ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    return status == 0;
}

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
