// Natives of com.quorvel.platwifi.api.Natives.

#include "api/Call.h"
#include "api/JavaValues.h"
#include "api/Operations.h"
#include "api/WordTables.h"
#include "commands/EventReport.h"
#include "events/EventSource.h"
#include "jni/ServiceFunctions.h"
#include "platform/JavaText.h"

#include <cstring>
#include <memory>

// Opens the definition of a native.
#define API_NATIVE(Result, method)                                                                 \
    extern "C" JNIEXPORT Result JNICALL Java_com_quorvel_platwifi_api_Natives_##method

namespace {

using namespace cli;
using namespace cli::api;

// A native object in Java: the bytes of its address.
template <typename Object>
jlong handleOf(std::unique_ptr<Object> object) {
    jlong handle = 0;
    const Object* const address = object.release();
    static_assert(sizeof(void*) <= sizeof handle);
    std::memcpy(&handle, &address, sizeof(void*));
    return handle;
}

template <typename Object>
Object& objectOf(jlong handle) {
    Object* address = nullptr;
    std::memcpy(&address, &handle, sizeof(void*));
    return *address;
}

template <typename Object>
void deleteObject(jlong handle) {
    const std::unique_ptr<Object> owner(&objectOf<Object>(handle));
}

Request requestFor(JNIEnv* env, jstring iface, jstring ssid = nullptr, jint timeout = 0) {
    Request request;
    request.iface = textOf(env, iface);
    request.ssid = bytesOfHex(textOf(env, ssid));
    request.timeout = static_cast<unsigned int>(timeout);
    request.json = true; // the operations show no progress then
    return request;
}

template <typename Operation>
auto performPlain(JNIEnv* env, const Request& request, jlong cancellation, Operation operation) {
    return perform(request, objectOf<Cancellation>(cancellation), Secrets(env, nullptr), operation);
}

std::vector<Texts> rowsOf(const std::vector<Record>& records) {
    std::vector<Texts> rows;
    rows.reserve(records.size());
    for (const Record& record : records)
        rows.push_back(membersOf(record));
    return rows;
}

// A row has the kind of the step, the SSID and the assignments.
Step stepOf(const Texts& row) {
    Step::Kind kind = Step::Kind::CHANGE;
    if (row.at(0) == "add")
        kind = Step::Kind::ADD;
    else if (row.at(0) == "remove")
        kind = Step::Kind::REMOVE;
    return {kind, bytesOfHex(row.at(1)), {row.begin() + 2, row.end()}};
}

std::vector<Step> stepsOf(const std::vector<Texts>& rows) {
    std::vector<Step> steps;
    steps.reserve(rows.size());
    for (const Texts& row : rows)
        steps.push_back(stepOf(row));
    return steps;
}

Record recordOf(const Event& event) {
    Record record = cli::recordOf(event, std::time(nullptr));
    for (Member& member : record) {
        if (member.first == "ssid")
            member.second = hexOf(event.ssid);
    }
    return record;
}

} // namespace

API_NATIVE(jboolean, useModernProfile0)(JNIEnv* /*env*/, jclass) {
    return setWifiProfile(nullptr, "modern") != 0 ? JNI_TRUE : JNI_FALSE;
}

API_NATIVE(jobjectArray, words0)(JNIEnv* env, jclass, jstring table) {
    return guarded(env, [&] { return newTexts(env, wordsOf(textOf(env, table))); });
}

API_NATIVE(jlong, newCancellation0)(JNIEnv* env, jclass) {
    return guarded(env, [&] { return handleOf(std::make_unique<Cancellation>()); });
}

API_NATIVE(void, cancel0)(JNIEnv* /*env*/, jclass, jlong cancellation) {
    objectOf<Cancellation>(cancellation).cancel(Cancellation::NO_SIGNAL);
}

API_NATIVE(void, deleteCancellation0)(JNIEnv* /*env*/, jclass, jlong cancellation) {
    deleteObject<Cancellation>(cancellation);
}

API_NATIVE(jobjectArray, adapters0)(JNIEnv* env, jclass, jlong cancellation) {
    return guarded(env, [&] {
        const Request request = requestFor(env, nullptr);
        return performPlain(env, request, cancellation, [&](Context& context) {
            return newTexts(env, Host(context).adapters());
        });
    });
}

API_NATIVE(jstring, interface0)(JNIEnv* env, jclass, jlong cancellation, jstring iface) {
    return guarded(env, [&] {
        const Request request = requestFor(env, iface);
        return performPlain(env, request, cancellation, [&](Context& context) {
            return platform::newJavaString(env, Host(context).iface().c_str());
        });
    });
}

API_NATIVE(jobjectArray, scan0)(JNIEnv* env, jclass, jlong cancellation, jstring iface) {
    return guarded(env, [&] {
        const Request request = requestFor(env, iface);
        return newRows(env, rowsOf(performPlain(env, request, cancellation, scan)));
    });
}

API_NATIVE(jobjectArray, networks0)(JNIEnv* env, jclass, jlong cancellation, jstring iface) {
    return guarded(env, [&] {
        const Request request = requestFor(env, iface);
        return newRows(env, rowsOf(performPlain(env, request, cancellation, networks)));
    });
}

API_NATIVE(jobjectArray, link0)(JNIEnv* env, jclass, jlong cancellation, jstring iface) {
    return guarded(env, [&] {
        const Request request = requestFor(env, iface);
        return newTexts(env, membersOf(performPlain(env, request, cancellation, cli::api::link)));
    });
}

API_NATIVE(void, edit0)
(JNIEnv* env, jclass, jlong cancellation, jstring iface, jobjectArray steps, jobjectArray secrets) {
    guarded(env, [&] {
        const Request request = requestFor(env, iface);
        const auto all = stepsOf(cli::api::rowsOf(env, steps));
        perform(request, objectOf<Cancellation>(cancellation), Secrets(env, secrets),
                [&](Context& context) { edit(context, all); });
    });
}

API_NATIVE(jobjectArray, join0)
(JNIEnv* env, jclass, jlong cancellation, jstring iface, jstring ssid, jobjectArray assignments,
 jobjectArray secrets, jint timeout) {
    return guarded(env, [&] {
        Request request = requestFor(env, iface, ssid, timeout);
        request.assignments = textsOf(env, assignments);
        const Record record = perform(request, objectOf<Cancellation>(cancellation),
                                      Secrets(env, secrets), joinNetwork);
        return newTexts(env, membersOf(record));
    });
}

API_NATIVE(jobjectArray, connect0)
(JNIEnv* env, jclass, jlong cancellation, jstring iface, jstring ssid, jint timeout) {
    return guarded(env, [&] {
        const Request request = requestFor(env, iface, ssid, timeout);
        return newTexts(env, membersOf(performPlain(env, request, cancellation, connectNetwork)));
    });
}

API_NATIVE(void, disconnect0)(JNIEnv* env, jclass, jlong cancellation, jstring iface) {
    guarded(env, [&] {
        const Request request = requestFor(env, iface);
        performPlain(env, request, cancellation, disconnect);
    });
}

API_NATIVE(void, roam0)(JNIEnv* env, jclass, jlong cancellation, jstring iface) {
    guarded(env, [&] {
        const Request request = requestFor(env, iface);
        performPlain(env, request, cancellation, roam);
    });
}

API_NATIVE(jlong, openEvents0)(JNIEnv* env, jclass, jlong cancellation, jstring iface) {
    return guarded(env, [&] {
        return handleOf(std::make_unique<EventSource>(textOf(env, iface),
                                                      objectOf<Cancellation>(cancellation)));
    });
}

// Null if there is none in time. The cancellation of the source ends the wait.
API_NATIVE(jobjectArray, nextEvent0)(JNIEnv* env, jclass, jlong events, jint milliseconds) {
    return guarded(env, [&]() -> jobjectArray {
        const auto deadline = EventSource::Clock::now() + std::chrono::milliseconds(milliseconds);
        const auto event = objectOf<EventSource>(events).next(deadline);
        return event ? newTexts(env, membersOf(recordOf(*event))) : nullptr;
    });
}

API_NATIVE(void, closeEvents0)(JNIEnv* /*env*/, jclass, jlong events) {
    deleteObject<EventSource>(events);
}
