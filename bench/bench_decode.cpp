// How much processor time a long list of jobs takes from bytes to records, and back, beside what Qt's own parser takes for the same
// bytes alone; and, for comparison, what that parser takes when the same records are picked out of its document by hand.
#include "Bench.h"
#include "service/Json.h"
#include "service/Records.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <malloc.h>

using namespace quillmere;
using namespace quillmere::bench;
using namespace Qt::StringLiterals;

namespace {

constexpr int jobs = 20000;
constexpr double mostOfFloor = 1 / 3.0;

// A job is about 500 bytes in either shape.
enum class Shape { Flat, WithMaps };

QByteArray listOfJobs(Shape shape)
{
    QByteArray json = "{\"data\":[";
    for (int i = 0; i < jobs; ++i) {
        const QByteArray number = QByteArray::number(i);
        json += i == 0 ? "" : ",";
        json += "{\"id\":\"ftjob-" + number + "\",\"name\":\"Support answers, attempt " + number
            + "\",\"status\":\"failed\",\"progress\":" + QByteArray::number(i % 101) + ",";
        if (shape == Shape::WithMaps) {
            json += "\"config\":{\"base_model\":\"llama-3.1-8b-instruct\",\"learning_rate\":0.0002,\"num_epochs\":3,"
                    "\"batch_size\":16,\"lora\":{\"rank\":8,\"alpha\":16,\"target_modules\":[\"q_proj\",\"k_proj\","
                    "\"v_proj\",\"o_proj\"]},\"use_flash_attention\":true},\"metrics\":{\"loss\":0."
                + QByteArray::number(8214375972747803 + i) + ",\"accuracy\":0.9130434782608695,\"steps\":" + number
                + "},\"error_message\":null,";
        } else {
            json += "\"config\":null,\"metrics\":null,\"error_message\":\"The worker that held shard " + number
                + " stopped answering while it wrote its checkpoint, and no other worker was free to take its place "
                  "within the time allowed. Nothing of the run up to the last checkpoint is lost: start the job again "
                  "to "
                  "go on from there, or choose a smaller batch so that it fits on fewer workers.\",";
        }
        json += "\"started_at\":\"2026-05-01T12:00:05Z\",\"completed_at\":\"2026-05-01T14:30:00+02:00\","
                "\"created_at\":\"2026-05-01T12:00:00Z\"}";
    }
    return json + "]}";
}

std::optional<AnyCodableMap> pickMap(const QJsonValue &value)
{
    if (!value.isObject()) {
        return {};
    }
    QMap<QString, AnyCodable> map;
    const QJsonObject object = value.toObject();
    for (auto each = object.begin(); each != object.end(); ++each) {
        map.insert(each.key(), AnyCodable{each.value().toVariant()});
    }
    return AnyCodableMap(map);
}

std::optional<QDateTime> pickDate(const QJsonValue &value)
{
    return value.isString() ? std::optional(QDateTime::fromString(value.toString(), Qt::ISODate)) : std::nullopt;
}

QList<FineTuneJob> pickJobs(const QJsonDocument &document)
{
    QList<FineTuneJob> picked;
    for (const QJsonValue value : document[u"data"_s].toArray()) {
        const QJsonObject job = value.toObject();
        const QJsonValue error = job[u"error_message"_s];
        picked.append({job[u"id"_s].toString(), job[u"name"_s].toString(), job[u"status"_s].toString(),
            job[u"progress"_s].toInteger(), pickMap(job[u"config"_s]), pickMap(job[u"metrics"_s]),
            error.isString() ? std::optional(error.toString()) : std::nullopt, pickDate(job[u"started_at"_s]),
            pickDate(job[u"completed_at"_s]), *pickDate(job[u"created_at"_s])});
    }
    return picked;
}

// The allocator puts off sorting what was freed until somebody wants much, so that one sample would pay for what the one before it
// left; so each begins with a tidy heap.
double sample(auto &&work)
{
    malloc_trim(0);
    return processorMillisecondsOf(work);
}

void measure(const QString &name, Shape shape, int rounds)
{
    const QByteArray json = listOfJobs(shape);
    Samples parsings;
    Samples pickings;
    Samples decodings;
    Samples lookings;
    Samples encodings;
    for (int round = 0; round < rounds; ++round) {
        parsings.push_back(
            sample([&] { check(QJsonDocument::fromJson(json).isObject(), "The floor did not parse."); }));

        QList<FineTuneJob> picked;
        pickings.push_back(sample([&] { picked = pickJobs(QJsonDocument::fromJson(json)); }));
        check(picked.size() == jobs, "The floor lacks jobs.");
        picked.clear();

        FineTuneJobsResponse response;
        decodings.push_back(sample([&] {
            auto decoded = decode<FineTuneJobsResponse>(json, KeyCoding::SnakeCase);
            check(decoded.succeeded(), "Decoding failed.");
            response = *std::move(decoded);
        }));
        check(response.data.size() == jobs, "Jobs are missing.");
        if (shape == Shape::WithMaps) {
            lookings.push_back(sample([&] {
                for (const FineTuneJob &job : std::as_const(response.data)) {
                    check(!job.config->toMap().isEmpty() && !job.metrics->toMap().isEmpty(), "A map is empty.");
                }
            }));
        }

        encodings.push_back(
            sample([&] { check(encode(response, KeyCoding::SnakeCase).succeeded(), "Encoding failed."); }));
    }
    const QString parser = u"Qt's bare parse"_s;
    print({u"decode 20,000 jobs "_s + name, "ms", decodings, parser, parsings, timesFloor(mostOfFloor)});
    print({u"  Qt's parse and the same records by hand"_s, "ms", pickings, parser, parsings, {}});
    if (shape == Shape::WithMaps) {
        print({u"  look into every map of theirs"_s, "ms", lookings, parser, parsings, {}});
    }
    print({u"  encode them"_s, "ms", encodings, parser, parsings, {}});
}

} // namespace

int main(int argc, char *argv[])
{
    const int rounds = isQuick(argc, argv) ? 7 : 21;
    measure(u"without maps"_s, Shape::Flat, rounds);
    measure(u"with config and metrics"_s, Shape::WithMaps, rounds);
    return exitCode();
}
