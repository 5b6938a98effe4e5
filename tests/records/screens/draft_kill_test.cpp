#include "support/child_process.h"
#include "support/customer/screens/all_forms_test.h"
#include "ui/end_signals.h"

#include <QProcess>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTimer>

#include <chrono>

using core::Answer;

namespace {

const char Folder[] = "CORVANE_TYPIST_FOLDER";
const char FormNumber[] = "CORVANE_TYPIST_FORM";

qint64 millisecondsNow()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count();
}

// The program run as a process of its own, in which somebody types. It says into which data file,
// and when it has typed each letter.
class Typist {
public:
    Typist(int form, const QString& folder)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QLatin1String(Folder), folder);
        environment.insert(QLatin1String(FormNumber), QString::number(form));
        m_process.setProcessEnvironment(environment);
        m_process.setStandardErrorFile(QProcess::nullDevice());
        m_process.start(QCoreApplication::applicationFilePath(),
                        {u"--gtest_filter=DraftKillTest.*"_s});
    }
    bool hasBegun()
    {
        while (!m_output.contains("\ntyped ") && m_process.waitForReadyRead(20'000))
            m_output += m_process.readAllStandardOutput();
        return m_output.contains("\ntyped ");
    }
    void end(bool kill)
    {
        m_ended = millisecondsNow();
        kill ? m_process.kill() : m_process.terminate();
        EXPECT_TRUE(m_process.waitForFinished(20'000));
        m_output += m_process.readAllStandardOutput();
    }
    QString dataFile() const { return QString::fromUtf8(words("file ").value(0)); }
    // How many letters it had typed some milliseconds before its end.
    int typed(int before) const
    {
        int letters = 0;
        for (const QByteArray& moment : words("typed "))
            letters += moment.toLongLong() <= m_ended - before;
        return letters;
    }

private:
    QList<QByteArray> words(const QByteArray& start) const
    {
        QList<QByteArray> found;
        for (const QByteArray& line : m_output.split('\n')) {
            if (line.startsWith(start))
                found.append(line.mid(start.size()));
        }
        return found;
    }

    QProcess m_process;
    QByteArray m_output;
    qint64 m_ended = 0;
};

QString letter(int number)
{
    return QString(QChar(u'a' + number % 26));
}

class DraftKillTest : public EditFormTableTest {
protected:
    using EachForm = EditFormTableTest::Form;

    // A letter each 20 ms, until the process is ended from outside.
    void typeUntilTheEnd()
    {
        const EachForm each = forms().at(qEnvironmentVariableIntValue(FormNumber));
        drafts = {std::make_shared<records::DraftStore>(qEnvironmentVariable(Folder)), path()};
        printf("\nfile %s\n", qUtf8Printable(path()));
        each.change();
        const ui::EndSignals endSignals;
        int typed = 0;
        QTimer keys;
        QObject::connect(&keys, &QTimer::timeout, &keys, [&] {
            QTest::keyClicks(&text(each), letter(typed++));
            printf("typed %lld\n", millisecondsNow());
            fflush(stdout);
        });
        text(each).clear();
        keys.start(20);
        QTimer::singleShot(60'000, qApp, [] { ADD_FAILURE() << "nobody ended it"; });
        QApplication::exec();
    }
};

TEST_F(DraftKillTest, WhatWasTypedIsOfferedAfterTheRestart)
{
    if (qEnvironmentVariableIsSet(Folder)) {
        typeUntilTheEnd();
        return;
    }
    for (int round = rounds("CORVANE_KILLS", 2); round > 0; --round) {
        const bool kill = round % 2 == 0;
        const QList<EachForm> all = forms();
        for (int at = 0; at < all.size(); ++at) {
            SCOPED_TRACE(testing::Message() << all[at].name << (kill ? ", -9" : ", -15"));
            const QTemporaryDir folder;
            Typist typist(at, folder.path());
            ASSERT_TRUE(typist.hasBegun());
            QTest::qSleep(QRandomGenerator::global()->bounded(kill ? 4000 : 1000));
            typist.end(kill);

            const int least = typist.typed(kill ? 3000 : 0);
            const auto store = std::make_shared<records::DraftStore>(folder.path());
            store->takeOver();
            drafts = {store, typist.dataFile()};
            // A kill may come before there was anything to be written.
            const bool isOffered = !drafts.forms().isEmpty();
            EXPECT_TRUE(isOffered || least == 0);
            if (isOffered)
                messages.willAnswer(Answer::Yes);
            all[at].change();
            EXPECT_EQ(messages.takeBoxes().size(), isOffered ? 1 : 0);
            const QString restored = isOffered ? text(all[at]).toPlainText() : QString();
            EXPECT_GE(restored.size(), least);
            for (int i = 0; i < restored.size(); ++i)
                ASSERT_EQ(restored.mid(i, 1), letter(i));
            press("Command3");
        }
    }
}

} // namespace
