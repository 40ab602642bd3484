#include "platform/BufferedXWriter.h"

BufferedXWriter::BufferedXWriter() = default;

BufferedXWriter::~BufferedXWriter() = default;

void BufferedXWriter::write(const char* bytes, std::size_t length) {
    m_document.append(bytes, length);
}
