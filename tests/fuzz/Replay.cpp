// Feeds a target the files of a folder: each as it is, cut short at every place, and with each of its bytes damaged.
#include "Fuzz.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cstdio>

int main(int argc, char *argv[])
{
    using quillmere::fuzz::feed;
    const QCoreApplication application(argc, argv);
    const QDir folder(QString::fromLocal8Bit(argc > 1 ? argv[1] : "."));
    const QStringList names = folder.entryList(QDir::Files, QDir::Name);
    int fed = 0;
    for (const QString &name : names) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            std::fprintf(stderr, "%s cannot be read\n", qPrintable(file.fileName()));
            return 1;
        }
        const QByteArray input = file.readAll();
        feed(input);
        for (qsizetype place = 0; place < input.size(); ++place) {
            feed(input.left(place));
            QByteArray damaged = input;
            for (const char byte : {'\0', ' ', '0', '"', '\xff', char(input[place] ^ 1)}) {
                damaged[place] = byte;
                feed(damaged);
            }
            fed += 7;
        }
        ++fed;
    }
    std::printf("%d inputs from %d files\n", fed, int(names.size()));
    return names.isEmpty() ? 1 : 0;
}
