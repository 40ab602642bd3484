// What a caller in C needs of the platform's classes: texts, secrets, errors.

#include "TextCopy.h"
#include "platform/BufferedXWriter.h"
#include "platform/Crypt.h"
#include "platform/ErrorHandler.h"
#include "platwifi.h"
#include "settings/WifiHostSettings.h"

#include <memory>

using namespace platwifi;

namespace {

class ReportedErrors final : public ErrorHandler {
public:
    ReportedErrors(PlatwifiErrorFunction report, void* context) noexcept
        : m_report(report), m_context(context) {}

    using ErrorHandler::error;

    void error(MessageBundle* bundle) override {
        if (m_report && bundle)
            m_report(m_context, bundle->id(), bundle->text());
    }

private:
    const PlatwifiErrorFunction m_report;
    void* const m_context;
};

} // namespace

const char* platwifiVersion() noexcept {
    return PLATWIFI_VERSION;
}

int platwifiXml(ErrorHandler* errors, int full, char** textOut) noexcept {
    if (!textOut)
        return 0;
    BufferedXWriter document;
    const bool isWritten =
        WifiHostSettings::getInstance(errors)->getWifiHostSettingsXML(&document, errors, full != 0);
    *textOut = isWritten ? copyOf(document.text()) : nullptr;
    return isWritten ? 1 : 0;
}

int platwifiEncrypt(ErrorHandler* errors, const char* plain, char** secretOut) noexcept {
    return Crypt::encryptForThisProcess(errors, plain, secretOut) == 0 ? 1 : 0;
}

int platwifiDecrypt(ErrorHandler* errors, const char* secret, char** plainOut) noexcept {
    return Crypt::decrypt(errors, secret, plainOut) == 0 ? 1 : 0;
}

void platwifiFree(char* text) noexcept {
    delete[] text;
}

void platwifiFreeList(char** list, unsigned int count) noexcept {
    for (unsigned int i = 0; list && i < count; ++i)
        delete[] list[i];
    delete[] list;
}

ErrorHandler* platwifiNewErrors(PlatwifiErrorFunction report, void* context) noexcept {
    return std::make_unique<ReportedErrors>(report, context).release();
}

void platwifiFreeErrors(ErrorHandler* errors) noexcept {
    delete errors;
}
