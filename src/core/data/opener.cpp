#include "core/data/opener.h"

#include "core/data/messages.h"

using namespace Qt::StringLiterals;

namespace core {

void openFileOrTell(Opener& opener, Messages& messages, const QString& path)
{
    switch (opener.openFile(path)) {
    case Opened::Yes:
        break;
    case Opened::Missing:
        messages.refuse(u"ファイルが見つかりません。\r\n"_s + path
                        + u"\r\n場所が変わっていないか確認して下さい。"_s);
        break;
    case Opened::NoProgram:
        messages.refuse(u"ファイルを開けませんでした。\r\n"_s + path
                        + u"\r\nこの種類のファイルを開くプログラムがありません。"_s);
        break;
    }
}

void openAddressOrTell(Opener& opener, Messages& messages, const QString& address)
{
    switch (opener.openAddress(address)) {
    case Opened::Yes:
        break;
    case Opened::Missing:
        messages.refuse(u"開けませんでした。\r\n"_s + address
                        + u"\r\nアドレスが正しいか確認して下さい。"_s);
        break;
    case Opened::NoProgram:
        messages.refuse(u"開けませんでした。\r\n"_s + address
                        + u"\r\nこのアドレスを開くプログラムがありません。"_s);
        break;
    }
}

} // namespace core
