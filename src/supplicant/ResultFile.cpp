#include "supplicant/ResultFile.h"

#include "Profile.h"
#include "platform/UnnamedFile.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>

using platform::FileDescriptor;

namespace platwifi {
namespace {

// With O_NONBLOCK a pipe in the file's place fails to open for writing, instead of blocking the
// caller.
constexpr int SAFELY = O_NOFOLLOW | O_CLOEXEC | O_NONBLOCK;
constexpr int FOR_OUTPUT = O_WRONLY | O_CREAT | SAFELY;
constexpr mode_t OUTPUT_MODE = S_IRUSR | S_IRGRP;

bool isRegular(const FileDescriptor& file, struct stat& facts) {
    return file.isOpen() && fstat(file.number(), &facts) == 0 && S_ISREG(facts.st_mode);
}

FileDescriptor replaceFile(const char* path) {
    unlink(path);
    return FileDescriptor(open(path, FOR_OUTPUT | O_EXCL, OUTPUT_MODE));
}

} // namespace

FileDescriptor createResultFile(const char* path) {
    FileDescriptor file(open(path, FOR_OUTPUT, OUTPUT_MODE));
    // The mode forbids writing even to the owner, so a leftover file cannot be opened again.
    if (!file.isOpen() && errno == EACCES)
        return replaceFile(path);
    struct stat facts {};
    if (!isRegular(file, facts))
        return FileDescriptor();
    // A second name may have been given by another user, to have some other file of this user
    // emptied.
    if (facts.st_uid != geteuid() || facts.st_nlink != 1)
        return replaceFile(path);
    if (ftruncate(file.number(), 0) != 0)
        return FileDescriptor();
    return file;
}

ResultFile::ResultFile(const char* prefix) noexcept {
    if (!rule::RESULT_FILES_HAVE_NAMES()) {
        m_unnamed = platform::newUnnamedFile();
        return;
    }
    m_claim.emplace(ResultTag());
    std::snprintf(m_path, sizeof(m_path), "%s%s", prefix, ResultTag().text());
}

ResultFile::~ResultFile() {
    if (m_file)
        std::fclose(m_file);
    if (m_claim && !m_kept)
        std::remove(m_path);
}

bool ResultFile::open() noexcept {
    m_file = m_claim ? openNamed() : openUnnamed();
    if (m_file)
        std::setvbuf(m_file, m_buffer, _IOFBF, sizeof(m_buffer));
    return m_file != nullptr;
}

std::FILE* ResultFile::openNamed() noexcept {
    FileDescriptor file(::open(m_path, O_RDONLY | SAFELY));
    struct stat facts {};
    if (!isRegular(file, facts))
        return nullptr;
    std::FILE* const stream = fdopen(file.number(), "r");
    if (stream)
        file.release();
    return stream;
}

// The child has left the position behind what it wrote.
std::FILE* ResultFile::openUnnamed() noexcept {
    if (!m_unnamed.isOpen() || lseek(m_unnamed.number(), 0, SEEK_SET) != 0)
        return nullptr;
    std::FILE* const stream = fdopen(m_unnamed.number(), "r");
    if (stream)
        m_unnamed.release();
    return stream;
}

bool ResultFile::readLine(char* line, int size) noexcept {
    if (!m_file || !std::fgets(line, size, m_file))
        return false;
    if (char* lineFeed = std::strrchr(line, '\n'))
        *lineFeed = '\0';
    return true;
}

} // namespace platwifi
