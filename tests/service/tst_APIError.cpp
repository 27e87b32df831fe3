#include "service/APIError.h"

#include <QTest>

using namespace quillmere;
using namespace Qt::StringLiterals;

class tst_APIError : public QObject {
    Q_OBJECT

private slots:
    void saysWhatTheUserIsToldOfEachCase_data()
    {
        QTest::addColumn<int>("code");
        QTest::addColumn<APIError>("error");
        QTest::addColumn<QString>("text");

        // In the order in which the cases are declared, which is also their code.
        QTest::newRow("server error") << 0 << APIError::serverError << u"Boom"_s;
        QTest::newRow("network error") << 1 << APIError::networkError << u"Boom"_s;
        QTest::newRow("invalid URL") << 2 << APIError::invalidURL << u"Invalid API URL"_s;
        QTest::newRow("invalid response") << 3 << APIError::invalidResponse << u"Invalid response from server"_s;
        QTest::newRow("unauthorized") << 4 << APIError::unauthorized << u"Please log in to continue"_s;
        QTest::newRow("forbidden") << 5 << APIError::forbidden
                                   << u"You don't have permission to access this resource"_s;
        QTest::newRow("not found") << 6 << APIError::notFound << u"Resource not found"_s;
        QTest::newRow("rate limited") << 7 << APIError::rateLimited << u"Too many requests, please try again later"_s;
    }

    // The message shows where the case has none of its own, and nowhere else.
    void saysWhatTheUserIsToldOfEachCase()
    {
        QFETCH(int, code);
        QFETCH(APIError, error);
        QFETCH(QString, text);

        QCOMPARE(errorDescription(error, u"Boom"_s), text);

        const Failure failed = failure(error, u"Boom"_s);
        QCOMPARE(failed.kind(), Failure::Kind::Service);
        QCOMPARE(failed.code(), code);
        QCOMPARE(failed.localizedDescription(), text);
    }

    void passesOnWhatTheTransportSaysInANetworkError()
    {
        const Failure beneath(Failure::Kind::Transport, u"Connection refused"_s);

        QCOMPARE(errorDescription(APIError::networkError, beneath.localizedDescription()), u"Connection refused"_s);
    }
};

QTEST_APPLESS_MAIN(tst_APIError)
#include "tst_APIError.moc"
