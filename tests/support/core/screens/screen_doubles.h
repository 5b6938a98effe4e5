#pragma once

#include "core/screens/screen_flow.h"

#include <QList>
#include <QStringList>

// Records where the screens hand over.
class RecordedFlow : public core::ScreenFlow {
public:
    bool has(core::Screen screen) const override { return !lacking.contains(screen); }
    bool has(core::DataKind kind) const override { return !lackingKinds.contains(kind); }
    void show(core::Screen screen) override { shown.append(screen); }
    void showChooser(core::DataKind kind) override { choosers.append(kind); }
    void endProgram() override { ++ends; }

    QList<core::Screen> lacking;
    QList<core::DataKind> lackingKinds;
    QList<core::Screen> shown;
    QList<core::DataKind> choosers;
    int ends = 0;
};

// Records which data file was to be opened, and opens it or not.
class RecordedFileOpener : public core::DataFileOpener {
public:
    struct Call {
        core::DataKind kind;
        QString path;
        storage::Mode mode;

        bool operator==(const Call& other) const = default;
        friend void PrintTo(const Call& call, std::ostream* out)
        {
            *out << call.path.toStdString() << " mode " << static_cast<int>(call.mode);
        }
    };

    std::optional<core::OpenedDataFile> open(core::DataKind kind, const QString& path,
                                             storage::Mode mode) override
    {
        calls.append({kind, path, mode});
        return opened;
    }

    QList<Call> calls;
    std::optional<core::OpenedDataFile> opened = core::OpenedDataFile{};
};
