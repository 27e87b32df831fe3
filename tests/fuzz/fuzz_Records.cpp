// Every record of the service and of the sign-in, out of any bytes and back.
#include "Fuzz.h"

#include "identity/LoginRecords.h"
#include "service/Json.h"
#include "service/Records.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quillmere::fuzz {

namespace {

// A failure is in the program's own words and the record's own names; of what was received it may repeat nothing.
bool repeatsNothing(const Failure &failure)
{
    static const QRegularExpression ownWords(
        u"\\AThe reply could not be read: (it is (empty|not valid JSON|nested too deeply|too large)"
        "|[A-Za-z]+(\\.[a-z_A-Z]+|\\[[0-9]+\\])* (is missing|is not (a boolean|a string|an object|a list"
        "|a whole number of 64 bits|a date with time and zone)))\\.\\z"_s);
    return failure.kind() == Failure::Kind::Decoding && ownWords.match(failure.localizedDescription()).hasMatch();
}

template <typename Record> void read(const QByteArray &input, KeyCoding keys)
{
    const auto record = decode<Record>(input, keys);
    if (!record) {
        HOLDS(repeatsNothing(record.failure()));
        return;
    }
    if constexpr (Encodable<Record>) {
        const auto written = encode(*record, keys);
        if (!written) {
            // An offset may carry a date of the years 1 to 9999 out of them.
            HOLDS(written.failure().localizedDescription().endsWith(u"is not a date of the years 1 to 9999."_s));
            return;
        }
        const auto again = decode<Record>(*written, keys);
        HOLDS(again);
        const auto writtenAgain = encode(*again, keys);
        HOLDS(writtenAgain && *writtenAgain == *written);
    }
}

} // namespace

void feed(const QByteArray &input)
{
    const auto service = KeyCoding::SnakeCase;
    read<FineTuneJob>(input, service);
    read<DatasetInfo>(input, service);
    read<SubscriptionInfo>(input, service);
    read<UserProfile>(input, service);
    read<ModelInfo>(input, service);
    read<ModelDownloadInfo>(input, service);
    read<ModelsResponse>(input, service);
    read<DatasetsResponse>(input, service);
    read<FineTuneJobsResponse>(input, service);
    read<APIErrorResponse>(input, service);
    const auto plain = KeyCoding::Plain;
    read<LoginInitResponse>(input, plain);
    read<TOTPLoginResponse>(input, plain);
    read<APIErrorMessage>(input, plain);
}

} // namespace quillmere::fuzz
