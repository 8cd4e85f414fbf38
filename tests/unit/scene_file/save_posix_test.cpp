// Saving, as far as only this kind of system shows it: full disks, links, permissions, what is left aside.
#include <dirent.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>

#include "check.h"
#include "test_scene.h"

namespace {

// A folder of its own, removed with its files.
class Folder {
  public:
    Folder() {
        char name[] = "/tmp/scene_file_test.XXXXXX";
        path = ::mkdtemp(name);
    }
    ~Folder() {
        for (const std::string& file : files()) ::unlink((path + "/" + file).c_str());
        ::rmdir(path.c_str());
    }
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        DIR* folder = ::opendir(path.c_str());
        while (const dirent* entry = ::readdir(folder))
            if (entry->d_name[0] != '.') names.push_back(entry->d_name);
        ::closedir(folder);
        return names;
    }

    std::string path;
};

std::string contentOf(const std::string& path) {
    std::string content;
    std::FILE* file = std::fopen(path.c_str(), "rb");
    char piece[4096];
    for (std::size_t length; (length = std::fread(piece, 1, sizeof piece, file)) != 0;) content.append(piece, length);
    std::fclose(file);
    return content;
}

void put(const std::string& path, const char* content) {
    std::FILE* file = std::fopen(path.c_str(), "wb");
    std::fputs(content, file);
    std::fclose(file);
}

}  // namespace

TEST_CASE(aFullDiskLeavesTheOldFile) {
    const Folder folder;
    const std::string path = folder.path + "/a.kscene";
    put(path, "old");
    TestScene scene;
    std::string lines;
    for (int i = 0; i < 20000; ++i) lines += "{\"type\":\"Node\",\"name\":\"node " + std::to_string(i) + "\"}\n";
    CHECK_TEXT(scene.readLines(lines).c_str(), "");

    rlimit old;
    CHECK_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const rlimit small = {100000, old.rlim_max};
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    CHECK_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const std::string error = takeError(Offline::saveScene(scene.contents, path.c_str()));
    CHECK_EQ(::setrlimit(RLIMIT_FSIZE, &old), 0);
    std::signal(SIGXFSZ, handler);

    CHECK_TEXT(error.c_str(), ("[" + path + "] the file cannot be written: File too large").c_str());
    CHECK_TEXT(contentOf(path).c_str(), "old");
    CHECK_EQ(folder.files().size(), 1u);
}

TEST_CASE(linksAndPermissionsStay) {
    const Folder folder;
    const std::string path = folder.path + "/a.kscene";
    const std::string link = folder.path + "/link.kscene";
    put(path, "old");
    CHECK_EQ(::chmod(path.c_str(), 0640), 0);
    CHECK_EQ(::symlink("a.kscene", link.c_str()), 0);
    TestScene scene;
    CHECK_TEXT(takeError(Offline::saveScene(scene.contents, link.c_str())).c_str(), "");
    CHECK_TEXT(contentOf(path).c_str(), "{\"kelmo-scene\":1}\n");
    struct stat status;
    CHECK_EQ(::lstat(link.c_str(), &status), 0);
    CHECK(S_ISLNK(status.st_mode));
    CHECK_EQ(::stat(path.c_str(), &status), 0);
    CHECK_EQ(status.st_mode & 0777u, 0640u);
    CHECK_EQ(folder.files().size(), 2u);
}

TEST_CASE(aNewFileGetsTheUsualPermissions) {
    const Folder folder;
    const std::string path = folder.path + "/a.kscene";
    const mode_t mask = ::umask(027);
    TestScene scene;
    CHECK_TEXT(takeError(Offline::saveScene(scene.contents, path.c_str())).c_str(), "");
    ::umask(mask);
    struct stat status;
    CHECK_EQ(::stat(path.c_str(), &status), 0);
    CHECK_EQ(status.st_mode & 0777u, 0640u);
}
