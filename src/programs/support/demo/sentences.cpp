#include "programs/support/demo/words.h"

// What is sold and repaired, and what is written about it.
namespace programs::demo {

using namespace Qt::StringLiterals;

namespace {

QStringList lines(const QString& text)
{
    return text.split(u'|');
}

// "maker,name,model,price" between bars.
QList<Product> goods(const QString& text)
{
    QList<Product> list;
    for (const QString& line : lines(text)) {
        const QStringList fields = line.split(u',');
        list.append({fields[0], fields[1], fields[2], fields[3].toInt()});
    }
    return list;
}

} // namespace

const QList<Product>& products()
{
    static const QList<Product> list = goods(
        u"ハルタ電機,カラー複合機,HC-2,398000|ハルタ電機,モノクロ複合機,HM-1,248000|"
        u"ﾐﾅﾓ工業,業務用エアコン,MK-A,356000|ﾐﾅﾓ工業,除湿機,MJ-3,64800|ソラテック,ノートパソコン,"
        u"SN-5,148000|"
        u"ソラテック,デスクトップパソコン,SD-7,129800|ソラテック,無停電電源装置,SU-1,45800|"
        u"オリベ精機,レジスター,OR-4,98000|オリベ精機,ラベルプリンター,OL-2,52000|"
        u"ｶﾜｾﾐ産業,電話交換機,KP-8,480000|ｶﾜｾﾐ産業,ビジネスホン,KB-1,28000|ﾄｳｶ,LED照明,TL-6,12800|"
        u"ﾄｳｶ,電動シャッター,TS-9,268000|ＮＯＶＥＲＡ,プロジェクター,NP-3,158000|"
        u"ＮＯＶＥＲＡ,防犯カメラ,NC-2,39800|ユメミ製作所,業務用冷蔵庫,YR-5,318000|"
        u"ユメミ製作所,製氷機,YI-1,228000|ユメミ製作所,食器洗浄機,YW-7,398000|"
        u"アマネ,シュレッダー,AS-2,34800|アマネ,タイムレコーダー,AT-1,29800"_s);
    return list;
}

const QList<Product>& parts()
{
    static const QList<Product> list =
        goods(u",トナーカートリッジ（黒）,TN-10,12000|,トナーカートリッジ（シアン）,TN-11,14000|"
              u",ドラムユニット,DR-20,28000|,給紙ローラー,RL-03,2400|,定着ユニット,FU-50,46000|"
              u",電源基板,PB-77,18500|,制御基板,CB-12,32000|,冷却ファン,FN-08,3800|,液晶パネル,LP-"
              u"15,24000|"
              u",キーボード,KB-04,6800|,バッテリー,BT-33,9800|,ハードディスク,HD-20,11200|,"
              u"ＡＣアダプター,AC-19,5400|"
              u",コンプレッサー,CP-60,58000|,温度センサー,TS-02,4200|,パッキン,PK-91,680|,ヒューズ,"
              u"FZ-05,150|"
              u",リモコン,RC-44,3600|,モーター,MT-27,14800|,配線キット,WK-01,1900"_s);
    return list;
}

const QStringList& caseTitles()
{
    static const QStringList list = lines(
        u"複合機の定期点検|エアコン入替の見積|パソコン三台の納品|電話機増設の相談|ﾘｰｽ満了の案内|"
        u"レジの操作説明|"
        u"防犯カメラ設置工事|冷蔵庫の異音の件|ﾈｯﾄﾜｰｸ不調の調査|保守契約の更新|請求書の再発行依頼|"
        u"消耗品の定期便|"
        u"移転に伴う機器の搬出|照明のＬＥＤ化|プリンターが印刷できない|製氷機の清掃|新店舗の下見|"
        u"タイムレコーダーの故障|"
        u"ｼｭﾚｯﾀﾞｰの入替|サーバーの増設|ｿﾌﾄのバージョンアップ|苦情の対応|紹介客の訪問|年末のご挨拶"_s);
    return list;
}

const QStringList& caseNotes()
{
    static const QStringList list = lines(
        u"担当の方は午前中のみ在席|搬入は裏口から|見積は二部|前回の資料を持参すること|駐車場なし|"
        u"請求は月末締め|"
        u"電話は午後三時以降|カタログ送付済み|競合の見積あり|部品は在庫あり|現地で採寸が必要|社長の決裁待ち"_s);
    return list;
}

const QStringList& customerNotes()
{
    static const QStringList list = lines(
        u"紹介により取引開始。|毎月二十日締め、翌月末払い。|水曜定休。|"
        u"入口がわかりにくいので電話してから伺うこと。|"
        u"犬がいるので注意。\r\n呼び鈴は二回鳴らす。|FAXでの連絡を希望。|"
        u"保守契約あり（年二回点検）。|"
        u"担当者が代わったので確認のこと。\r\n前任は異動。|請求書は本社あて。|値引きの約束あり、見積の前に上長へ相談。"_s);
    return list;
}

const QStringList& logTexts()
{
    static const QStringList list = lines(
        u"電話にて内容を確認。|訪問して現物を確認、部品の手配が必要。|見積書をFAXで送付。|"
        u"見積の件で電話あり、検討中とのこと。|"
        u"値引きの要望あり。社内で相談のうえ返答する。|注文書を受領。|"
        u"納品の日程を調整、来週の火曜に決定。|"
        u"納品完了、動作を確認していただいた。|"
        u"部品入荷の連絡をした。\r\n折り返し日程の連絡をいただく。|不在のため伝言を依頼。|"
        u"先方より追加の依頼あり。\r\n・電源の増設\r\n・古い機器の引取り|点検を実施、異常なし。|"
        u"消耗品を交換、次回は半年後。|"
        u"請求書を郵送。|入金を確認。|お礼の電話をした。|操作の説明に伺う。資料を渡した。|改めて来月に連絡することになった。"_s);
    return list;
}

const QStringList& appointments()
{
    static const QStringList list = lines(
        u"朝礼|営業会議|定期点検の訪問|見積の提出|納品の立会い|来客|棚卸し|健康診断|ﾒｰｶｰ研修|車検|"
        u"新人の面接|展示会の準備|月次の締め|電話当番|倉庫の整理|修理品の引取り"_s);
    return list;
}

const QStringList& faults()
{
    static const QStringList list = lines(
        u"電源が入らない|異音がする|印刷がかすれる|用紙が詰まる|画面が映らない|冷えない|水漏れする|"
        u"ｴﾗｰ表示が消えない|"
        u"通信ができない|落下により破損|ボタンが反応しない|時々止まる|焦げたにおいがする|充電できない"_s);
    return list;
}

const QStringList& treatments()
{
    static const QStringList list =
        lines(u"基板を交換|部品を清掃し動作確認|ﾒｰｶｰへ送付して修理|配線をやり直し|消耗品を交換|"
              u"設定を初期化|"
              u"異常なし、様子を見る|モーターを交換|ソフトウェアを更新|部品の取り寄せ中"_s);
    return list;
}

const QStringList& accessories()
{
    static const QStringList list =
        lines(u"なし|電源コード|電源コード、取扱説明書|リモコン|ＡＣアダプター|外箱、保証書|鞄"_s);
    return list;
}

} // namespace programs::demo
