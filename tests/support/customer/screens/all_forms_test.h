#pragma once

#include "customer/screens/upkenmei.h"
#include "customer/screens/upkokyaku.h"
#include "customer/screens/upkrog.h"
#include "customer/screens/upkyotei.h"
#include "records/data/schedule.h"
#include "storage/recordset.h"
#include "support/customer/screens/edit_form_test.h"
#include "support/storage/refusals.h"

using namespace Qt::StringLiterals;

// What every edit form has to stand up to, to add and to change.
class EditFormTableTest : public EditFormTest {
protected:
    struct Form {
        const char* name;
        const records::RecordTable& table;
        core::RecordKey key;            // of the record that is changed
        QList<core::RecordKey> parents; // of a new one
        std::function<void()> add;      // opens the form for a new record
        std::function<void()> change;   // and on the record as it is now
        const char* longText;           // the field that takes any length
        QString column;                 // that it shows
        int textFields;
    };

    void SetUp() override
    {
        EditFormTest::SetUp();
        owner = addNamed(u"加藤"_s, u"ｶﾄｳ"_s).key;
        ofCase = addCaseOf(owner, u"点検"_s).key;
        log = addLogOf(ofCase, u"佐藤"_s, u"受付"_s).key;
        entry =
            CustomerTest::add(
                records::scheduleTable(), {},
                {{u"日付"_s, u"2024/04/15(月)"_s}, {u"時刻"_s, u"00:00"_s}, {u"予定"_s, u"棚卸"_s}})
                .key;
        shortenWaiting(file.connection);
    }

    template <typename Screen>
    Form form_(const char* name, const records::RecordTable& table, const core::RecordKey& key,
               const QList<core::RecordKey>& parents, const char* longText, const QString& column,
               int textFields)
    {
        return {name,
                table,
                key,
                parents,
                [this, parents] {
                    add<Screen>(parents);
                    fillRequired();
                },
                [this, &table, key] { edit<Screen>(table, key); },
                longText,
                column,
                textFields};
    }
    QList<Form> forms()
    {
        using namespace customer;
        return {
            form_<upkokyaku>("customer", customerTable(), owner, {}, "txtkokyaku_15", u"備考"_s,
                             16),
            form_<upkenmei>("case", caseTable(), ofCase, {owner}, "kenmei2", u"備考"_s, 2),
            form_<upkrog>("log entry", logTable(), log, {ofCase}, "Rrogu", u"Rログ"_s, 2),
            form_<upkyotei>("schedule", records::scheduleTable(), entry, {}, "yotei1", u"予定"_s,
                            1),
        };
    }
    void fillRequired()
    {
        for (const QString& field : {u"txtkokyaku_0"_s, u"txtkokyaku_1"_s}) {
            if (auto* const required = form->findChild<QLineEdit*>(field))
                required->setText(u"ｷﾑﾗ"_s);
        }
    }
    QPlainTextEdit& text(const Form& of)
    {
        return control<QPlainTextEdit>(QLatin1String(of.longText));
    }
    QString caption(const char* button)
    {
        return control<QPushButton>(QLatin1String(button)).text();
    }
    QString stored(const Form& of) { return fresh(of.table, of.key).text(of.column); }
    int rows(const Form& of)
    {
        return valueOf(u"SELECT count(*) AS n FROM "_s + of.table.name).toInt();
    }
    void changeElsewhere(const Form& of) { CustomerTest::change(of.table, of.key, {}); }
    void deleteElsewhere(const records::RecordTable& table, const core::RecordKey& key)
    {
        execute(u"DELETE FROM "_s + table.name + u" WHERE "_s + table.updateIdColumn + u" = "_s
                + QString::number(key.updateId));
    }

    // All that the forms write, row by row.
    QStringList everything()
    {
        QStringList all;
        for (const QString& table :
             {u"ユーザー"_s, u"件名"_s, u"ログ"_s, u"予定"_s, u"最新発番"_s}) {
            storage::Recordset row;
            EXPECT_TRUE(row.open(table, file.connection));
            for (; !row.eof(); row.moveNext()) {
                QString line = table;
                for (int i = 0; i < row.fieldCount(); ++i)
                    line += u'|' + row.value(i).toText();
                all.append(line);
            }
        }
        return all;
    }

    core::RecordKey owner, ofCase, log, entry;
};
