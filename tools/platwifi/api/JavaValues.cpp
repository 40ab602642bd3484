#include "api/JavaValues.h"

#include "platform/JNIString.h"
#include "platform/JavaText.h"

#include <algorithm>

namespace cli::api {
namespace {

constexpr const char* DIGITS = "0123456789abcdef";

/// A local reference, released at the end: an array may have more elements than a frame has room for.
template <typename Reference>
class Local {
public:
    Local(JNIEnv* env, jobject reference)
        : m_env(env), m_reference(static_cast<Reference>(reference)) {
        if (env->ExceptionCheck())
            throw PendingException();
    }
    ~Local() { m_env->DeleteLocalRef(m_reference); }
    Local(const Local&) = delete;
    Local& operator=(const Local&) = delete;

    Reference get() const { return m_reference; }

private:
    JNIEnv* const m_env;
    Reference const m_reference;
};

template <typename Reference, typename Use>
void forEach(JNIEnv* env, jobjectArray array, Use use) {
    const jsize size = array ? env->GetArrayLength(array) : 0;
    for (jsize i = 0; i < size; ++i) {
        const Local<Reference> element(env, env->GetObjectArrayElement(array, i));
        use(element.get());
    }
}

template <typename Make>
jobjectArray newArray(JNIEnv* env, const char* type, std::size_t size, Make make) {
    const Local<jclass> elements(env, env->FindClass(type));
    jobjectArray const array =
        env->NewObjectArray(static_cast<jsize>(size), elements.get(), nullptr);
    if (!array)
        throw PendingException();
    for (std::size_t i = 0; i < size; ++i) {
        const Local<jobject> element(env, make(i));
        env->SetObjectArrayElement(array, static_cast<jsize>(i), element.get());
    }
    return array;
}

std::string textOf(const Value& value) {
    if (const bool* const is = std::get_if<bool>(&value))
        return *is ? "true" : "false";
    if (const int* const number = std::get_if<int>(&value))
        return std::to_string(*number);
    const auto* const text = std::get_if<std::string>(&value);
    return text ? *text : "";
}

// The compiler may leave out writes to memory that is about to be freed, but not these.
void overwrite(std::string& secret) {
    volatile char* const bytes = secret.data();
    for (std::size_t i = 0; i < secret.size(); ++i)
        bytes[i] = '\0';
}

} // namespace

std::string textOf(JNIEnv* env, jstring text) {
    const JNIString characters(env, text);
    if (env->ExceptionCheck())
        throw PendingException();
    return characters.text() ? characters.text() : "";
}

Texts textsOf(JNIEnv* env, jobjectArray texts) {
    Texts all;
    forEach<jstring>(env, texts, [&](jstring text) { all.push_back(textOf(env, text)); });
    return all;
}

std::vector<Texts> rowsOf(JNIEnv* env, jobjectArray rows) {
    std::vector<Texts> all;
    forEach<jobjectArray>(env, rows, [&](jobjectArray row) { all.push_back(textsOf(env, row)); });
    return all;
}

Secrets::Secrets(JNIEnv* env, jobjectArray secrets) {
    forEach<jbyteArray>(env, secrets, [&](jbyteArray bytes) { add(env, bytes); });
}

Secrets::~Secrets() {
    std::for_each(m_secrets.begin(), m_secrets.end(), overwrite);
}

void Secrets::add(JNIEnv* env, jbyteArray bytes) {
    const jsize size = bytes ? env->GetArrayLength(bytes) : 0;
    std::string& secret = m_secrets.emplace_back(static_cast<std::size_t>(size), '\0');
    env->GetByteArrayRegion(bytes, 0, size, reinterpret_cast<jbyte*>(secret.data()));
}

jobjectArray newTexts(JNIEnv* env, const Texts& texts) {
    return newArray(env, "java/lang/String", texts.size(),
                    [&](std::size_t i) { return platform::newJavaString(env, texts[i].c_str()); });
}

jobjectArray newRows(JNIEnv* env, const std::vector<Texts>& rows) {
    return newArray(env, "[Ljava/lang/String;", rows.size(),
                    [&](std::size_t i) { return newTexts(env, rows[i]); });
}

Texts membersOf(const Record& record) {
    Texts members;
    for (const Member& member : record) {
        if (std::holds_alternative<std::monostate>(member.second))
            continue;
        members.push_back(member.first);
        members.push_back(textOf(member.second));
    }
    return members;
}

std::string hexOf(const std::string& bytes) {
    std::string digits;
    for (const char byte : bytes) {
        const auto value = static_cast<unsigned char>(byte);
        digits += {DIGITS[value / 16], DIGITS[value % 16]};
    }
    return digits;
}

std::string bytesOfHex(const std::string& digits) {
    std::string bytes;
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2)
        bytes += static_cast<char>(std::stoi(digits.substr(i, 2), nullptr, 16));
    return bytes;
}

} // namespace cli::api
