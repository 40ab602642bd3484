#pragma once

#include "platform/XWriter.h"

#include <string>

/// An XWriter that keeps the document in memory.
class PLATFORM_API BufferedXWriter : public XWriter {
public:
    BufferedXWriter();
    ~BufferedXWriter() override;

    /// The document so far, NUL-terminated; valid until the next write.
    const char* text() const noexcept { return m_document.c_str(); }

    /// Its length in bytes, without the NUL.
    std::size_t length() const noexcept { return m_document.size(); }

protected:
    void write(const char* bytes, std::size_t length) override;

private:
    std::string m_document;
};
