# SPDX-License-Identifier: GPL-3.0-or-later
"""What the twelve sample cards say. Every person, company, town and number is invented.

Telephone numbers use exchanges that are not given out (0000, 000), addresses use towns that do not
exist, and mail and web addresses stay below example.jp and example.com.
"""

from dataclasses import dataclass, field


@dataclass(frozen=True)
class Attachment:
    """A file in the card's attachment folder; text is what a .txt or .pdf says."""

    name: str
    text: str = ""


@dataclass(frozen=True)
class SampleCard:
    """One line of the data file. The field names are the record keys of its columns."""

    full_Name: str
    full_Name_Kana: str
    face_Image_File: str = ""
    back_Image_File: str = ""
    attachmentFile: str = ""
    company: str = ""
    company_Kana: str = ""
    department: str = ""
    job_Title: str = ""
    zip_PostalCode: str = ""
    state: str = ""
    city: str = ""
    street: str = ""
    address: str = ""
    telephone_Number: str = ""
    fax_Number: str = ""
    mobile_Number: str = ""
    e_Mail: str = ""
    web_Page_Address: str = ""
    memo: str = ""
    register_Date: str = ""
    attachments: list[Attachment] = field(default_factory=list)

    @property
    def one_line_address(self):
        return self.address or f"{self.state}{self.city}{self.street}"


AOYAGI = SampleCard(
    face_Image_File="0001_表.jpg",
    back_Image_File="0001_裏.jpg",
    attachmentFile="0001",
    full_Name="青柳　慎一郎",
    full_Name_Kana="ｱｵﾔｷ ｼﾝｲﾁﾛｳ",
    company="株式会社蒼海測量",
    company_Kana="ｶﾌﾞｼｷｶﾞｲｼｬ ｿｳｶｲｿｸﾘｮｳ",
    job_Title="代表取締役",
    zip_PostalCode="000-0112",
    state="神奈川県",
    city="汐見ヶ浜市",
    street="灯明町2-14-8 灯明ビル3F",
    telephone_Number="045-000-1201",
    fax_Number="045-000-1202",
    mobile_Number="090-0000-1201",
    e_Mail="aoyagi@soukai.example.jp",
    web_Page_Address="https://soukai.example.jp/",
    memo="展示会「みなと技術フェア」で名刺交換。海底地形図の件、4月に再訪の予定。",
    register_Date="2019/03/05",
    attachments=[
        Attachment("見積書.pdf", "Estimate 2019-031: sea floor survey, 3 days, 480,000 yen"),
        Attachment("訪問メモ.txt", "4月12日（金）14時、灯明ビル3F。\n海図の見本を持参すること。\n"),
    ],
)

ONODERA = SampleCard(
    face_Image_File="0002_表.jpg",
    back_Image_File="0002_裏.jpg",
    full_Name="小野寺　美月",
    full_Name_Kana="ｵﾉﾃﾞﾗ ﾐﾂﾞｷ",
    company="つむぎ製菓株式会社",
    company_Kana="ﾂﾑｷﾞｾｲｶ ｶﾌﾞｼｷｶﾞｲｼｬ",
    department="企画部 商品開発課",
    job_Title="課長",
    zip_PostalCode="000-0231",
    address="京都府花綾市東糸町5丁目3番地",
    telephone_Number="075-000-2310",
    fax_Number="075-000-2311",
    mobile_Number="080-0000-2310",
    e_Mail="mizuki.onodera@tsumugi.example.jp",
    web_Page_Address="https://tsumugi.example.jp/",
    memo="新作「夕虹ようかん」の見本をいただいた（6個入り）。お礼状、発送済み！",
    register_Date="2018/11/20",
)

TAKASE = SampleCard(
    face_Image_File="0003_表.jpg",
    attachmentFile="高瀬木工所",
    full_Name="高瀬　源",
    full_Name_Kana="タカセ　ゲン",
    company="高瀬木工所",
    company_Kana="ﾀｶｾﾓｯｺｳｼﾞｮ",
    job_Title="代表",
    zip_PostalCode="000-0338",
    state="岐阜県",
    city="木霊市",
    street="山之口118",
    telephone_Number="058-000-3380",
    mobile_Number="090-0000-3380",
    e_Mail="gen@takase-woods.example.jp",
    memo="くるみ材の椅子、納期は約3か月。",
    register_Date="2020/10/01",
    attachments=[Attachment("椅子.png")],
)

MIURA = SampleCard(
    face_Image_File="0004_表.jpg",
    full_Name="三浦　健太",
    full_Name_Kana="ﾐｳﾗ ｹﾝﾀ",
    company="北辰精密工業株式会社",
    company_Kana="ﾎｸｼﾝｾｲﾐﾂｺｳｷﾞｮｳ ｶﾌﾞｼｷｶﾞｲｼｬ",
    department="技術本部 第二設計課",
    job_Title="主任",
    zip_PostalCode="000-0447",
    state="長野県",
    city="星見市",
    street="工業団地7-2",
    telephone_Number="026-000-4470",
    fax_Number="026-000-4471",
    e_Mail="k.miura@hokushin.example.jp",
    web_Page_Address="https://hokushin.example.jp/",
    memo="図面番号HS-0447の公差を確認中（±0.005 mm）。",
    register_Date="2017/06/30",
)

LINDHOLM = SampleCard(
    face_Image_File="0005_front.jpg",
    back_Image_File="0005_back.jpg",
    full_Name="Anna Sofia Lindholm",
    full_Name_Kana="ﾘﾝﾄﾞﾎﾙﾑ ｱﾝﾅ･ｿﾌｨｱ",
    company="ノルドリス・インテリア株式会社",
    company_Kana="ﾉﾙﾄﾞﾘｽ･ｲﾝﾃﾘｱ ｶﾌﾞｼｷｶﾞｲｼｬ",
    department="Design Studio",
    job_Title="Creative Director",
    zip_PostalCode="000-0550",
    address="東京都白樺区北灯通り1-9-3 ノルドリス館",
    telephone_Number="03-0000-5500",
    mobile_Number="070-0000-5500",
    e_Mail="anna@nordlys-interior.example.com",
    web_Page_Address="https://nordlys-interior.example.com/",
    memo="Speaks Japanese and Swedish; prefers e-mail.",
    register_Date="2021/02/14",
)

HAYAKAWA = SampleCard(
    face_Image_File="0006_表.jpg",
    full_Name="早川　千尋",
    full_Name_Kana="ﾊﾔｶﾜ ﾁﾋﾛ",
    company="医療法人みどり会　こもれび歯科医院",
    company_Kana="ｲﾘｮｳﾎｳｼﾞﾝﾐﾄﾞﾘｶｲ ｺﾓﾚﾋﾞｼｶｲｲﾝ",
    job_Title="院長・歯学博士",
    zip_PostalCode="000-0664",
    state="埼玉県",
    city="若葉野市",
    street="木漏日1丁目6-4",
    telephone_Number="048-000-6640",
    fax_Number="048-000-6641",
    e_Mail="info@komorebi-dc.example.jp",
    web_Page_Address="https://komorebi-dc.example.jp/",
    memo="休診日：木曜・日曜・祝日。予約は電話のみ。",
    register_Date="2016/04/08",
)

FUJIMURA = SampleCard(
    back_Image_File="0007_裏.jpg",
    full_Name="藤村　汐里",
    full_Name_Kana="ﾌｼﾞﾑﾗ ｼｵﾘ",
    company="合同会社灯台書房",
    company_Kana="ｺﾞｳﾄﾞｳｶﾞｲｼｬ ﾄｳﾀﾞｲｼｮﾎﾞｳ",
    job_Title="店主",
    zip_PostalCode="000-0778",
    state="長崎県",
    street="潮待島 港通り7",
    telephone_Number="095-000-7780",
    e_Mail="hon@todai-shobo.example.jp",
    memo="裏面だけスキャン。表は手書きの一言のみ。",
    register_Date="2022/08/19",
)

OTSUKA = SampleCard(
    face_Image_File="0008_表.jpg",
    attachmentFile="0008",
    full_Name="大塚　陽介",
    full_Name_Kana="ｵｵﾂｶ ﾖｳｽｹ",
    company="株式会社ひだまり不動産",
    company_Kana="ｶﾌﾞｼｷｶﾞｲｼｬ ﾋﾀﾞﾏﾘﾌﾄﾞｳｻﾝ",
    department="営業部",
    job_Title="宅地建物取引士",
    zip_PostalCode="000-0889",
    state="千葉県",
    city="菜花市",
    street="南陽台3-8-9",
    telephone_Number="043-000-8890",
    fax_Number="043-000-8891",
    mobile_Number="090-0000-8890",
    e_Mail="otsuka@hidamari-estate.example.jp",
    memo="物件一覧をメールで受領。",
    register_Date="2023/01/06",
    attachments=[
        Attachment("物件一覧.txt", "南陽台ハイツ 201　2LDK　駅徒歩8分\n菜花コーポ 105　1K　駅徒歩3分\n"),
    ],
)

SAIONJI = SampleCard(
    face_Image_File="0009_表.jpg",
    back_Image_File="0009_裏.jpg",
    full_Name="西園寺　理央",
    full_Name_Kana="ｻｲｵﾝｼﾞ ﾘｵ",
    company="国立大学法人潮風工科大学",
    company_Kana="ｺｸﾘﾂﾀﾞｲｶﾞｸﾎｳｼﾞﾝ ｼｵｶｾﾞｺｳｶﾀﾞｲｶﾞｸ",
    department="工学部 情報工学科",
    job_Title="准教授",
    zip_PostalCode="000-0991",
    state="宮城県",
    city="潮風市",
    street="学園台9-1 情報棟412号室",
    telephone_Number="022-000-9910",
    fax_Number="022-000-9911",
    e_Mail="r.saionji@shiokaze-tech.example.jp",
    web_Page_Address="https://shiokaze-tech.example.jp/~saionji/",
    memo="学会の懇親会で隣の席。文字認識の共同研究を検討…？",
    register_Date="2015/09/16",
)

TSUKIOKA = SampleCard(
    face_Image_File="0010_表.jpg",
    back_Image_File="0010_裏.jpg",
    full_Name="月岡　蓮",
    full_Name_Kana="ﾂｷｵｶ ﾚﾝ",
    company="炉ばた月の音",
    company_Kana="ﾛﾊﾞﾀ ﾂｷﾉﾈ",
    job_Title="店主",
    zip_PostalCode="000-1010",
    address="大阪府宵町市二番筋10-10 地下1階",
    telephone_Number="06-0000-1010",
    web_Page_Address="https://tsukinone.example.jp/",
    memo="個室は2名～8名、要予約。",
    register_Date="2024/12/31",
)

WATARAI = SampleCard(
    face_Image_File="0011_表.jpg",
    back_Image_File="0011_裏.jpg",
    full_Name="渡会　航",
    full_Name_Kana="ﾜﾀﾗｲ ﾜﾀﾙ",
    company="株式会社ミナモ電機",
    company_Kana="ｶﾌﾞｼｷｶﾞｲｼｬ ﾐﾅﾓﾃﾞﾝｷ",
    department="ｼｽﾃﾑ事業部 営業ｸﾞﾙｰﾌﾟ",
    job_Title="係長",
    zip_PostalCode="000-1177",
    state="愛知県",
    city="水面市",
    street="中島町11-77 ﾐﾅﾓﾋﾞﾙ8F",
    telephone_Number="052-000-1177",
    fax_Number="052-000-1178",
    mobile_Number="080-0000-1177",
    e_Mail="wataru_watarai@minamo.example.jp",
    web_Page_Address="https://www.minamo.example.jp/",
    memo="ﾃﾞﾓ機の貸出し：2週間まで無料。返送先は8Fの受付。",
    register_Date="2014/02/03",
)

KIRISHIMA = SampleCard(
    face_Image_File="0012_表.jpg",
    back_Image_File="0012_裏.jpg",
    attachmentFile="0012",
    full_Name="霧島　ことは",
    full_Name_Kana="ｷﾘｼﾏ ｺﾄﾊ",
    job_Title="フォトグラファー",
    zip_PostalCode="000-1212",
    address="北海道雪明市白夜通西12丁目",
    mobile_Number="070-0000-1212",
    e_Mail="kotoha@kirishima-photo.example.com",
    web_Page_Address="https://kirishima-photo.example.com/",
    memo="個展「霧のあと」、来年2月。案内状を送ってもらう。",
    register_Date="2025/05/05",
    attachments=[Attachment("作品1.png"), Attachment("作品2.png")],
)

CARDS = [
    AOYAGI,
    ONODERA,
    TAKASE,
    MIURA,
    LINDHOLM,
    HAYAKAWA,
    FUJIMURA,
    OTSUKA,
    SAIONJI,
    TSUKIOKA,
    WATARAI,
    KIRISHIMA,
]
