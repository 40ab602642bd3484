#pragma once

#include "values/Values.h"

#include <jni.h>
#include <string>
#include <vector>

namespace cli::api {

/// A Java exception is pending: the native returns at once.
struct PendingException {};

using Texts = std::vector<std::string>;

// From Java. Null is the empty value. They throw PendingException where the virtual machine fails.

std::string textOf(JNIEnv* env, jstring text);
Texts textsOf(JNIEnv* env, jobjectArray texts);
std::vector<Texts> rowsOf(JNIEnv* env, jobjectArray rows);

/// Secrets from arrays of bytes. The object overwrites its copies when it ends.
class Secrets {
public:
    Secrets(JNIEnv* env, jobjectArray secrets);
    ~Secrets();
    Secrets(const Secrets&) = delete;
    Secrets& operator=(const Secrets&) = delete;

    std::size_t size() const { return m_secrets.size(); }
    const std::string& at(std::size_t index) const { return m_secrets.at(index); }

private:
    void add(JNIEnv* env, jbyteArray bytes);

    Texts m_secrets;
};

// To Java: new local references. They throw PendingException likewise.

jobjectArray newTexts(JNIEnv* env, const Texts& texts);
jobjectArray newRows(JNIEnv* env, const std::vector<Texts>& rows);

/// The members of a record that have a value, each as its name and then its value.
Texts membersOf(const Record& record);

// SSIDs cross as hexadecimal digits: they are bytes, and not always text.

std::string hexOf(const std::string& bytes);
std::string bytesOfHex(const std::string& digits);

} // namespace cli::api
