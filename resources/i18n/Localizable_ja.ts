<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-License-Identifier: GPL-3.0-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="ja" sourcelanguage="en">
<context>
    <name></name>
    <message id="IDS_BACKUP_CARDS">
        <source>Cards: %L1</source>
        <extracomment>In the list of backups. %L1: count.</extracomment>
        <translation>名刺: %L1件</translation>
    </message>
    <message id="IDS_BACKUP_COUNT">
        <source>Backups of the card database [%1]: %L2</source>
        <extracomment>%1: path. %L2: count.</extracomment>
        <translation>名刺データベース [%1] のバックアップ: %L2個</translation>
    </message>
    <message id="IDS_BACKUP_DAMAGE">
        <source>This backup cannot be restored. %1</source>
        <extracomment>Shown for the backup that is chosen in the list. %1: what is wrong, a sentence.</extracomment>
        <translation>このバックアップは復元できません。%1</translation>
    </message>
    <message id="IDS_BACKUP_DAMAGED">
        <source>The backup [%1] cannot be restored, so nothing was changed. %2</source>
        <extracomment>%1: path. %2: what is wrong, a sentence.</extracomment>
        <translation>バックアップ [%1] は復元できないため、何も変更しませんでした。%2</translation>
    </message>
    <message id="IDS_BACKUP_DELETED">
        <source>The backup [%1] has been deleted.</source>
        <extracomment>%1: name.</extracomment>
        <translation>バックアップ [%1] を削除しました。</translation>
    </message>
    <message id="IDS_BACKUP_FOLDER_READ_ONLY">
        <source>The folder [%1] cannot be written to, so nothing was changed. Check its access rights, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>フォルダー [%1] に書き込めないため、何も変更しませんでした。アクセス権を確認してから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_BACKUP_IN_USE">
        <source>[%1] is in use by another program, so nothing was changed. Quit that program or wait until it has ended, then try again.</source>
        <extracomment>%1: path of a card database or of a backup.</extracomment>
        <translation>[%1] はほかのプログラムが使用中のため、何も変更しませんでした。そのプログラムを終了するか、処理が終わるまで待ってから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_BACKUP_KEPT">
        <source>Backup of the card database as it was before the restore: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>復元前の名刺データベースのバックアップ: [%1]</translation>
    </message>
    <message id="IDS_BACKUP_LAST">
        <source>The backup [%1] was not deleted: the card database [%2] is damaged or missing, and no other backup of it is intact. Restore this backup, or copy it to another place first.</source>
        <extracomment>%1, %2: paths.</extracomment>
        <translation>バックアップ [%1] は削除しませんでした。名刺データベース [%2] が破損しているか存在せず、ほかに正常なバックアップがありません。このバックアップを復元するか、先に別の場所へコピーしてください。</translation>
    </message>
    <message id="IDS_BACKUP_LISTING">
        <source>Reading the backups…</source>
        <translation>バックアップを確認しています...</translation>
    </message>
    <message id="IDS_BACKUP_NONE">
        <source>There are no backups of this card database. An import makes one before it changes anything.</source>
        <translation>この名刺データベースのバックアップはありません。インポートすると、変更の前に作成されます。</translation>
    </message>
    <message id="IDS_BACKUP_NOT_DELETED">
        <source>The backup [%1] could not be deleted. Check its access rights and those of everything in it, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>バックアップ [%1] を削除できませんでした。バックアップと中のすべてのファイルのアクセス権を確認してから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_BACKUP_NOT_KEPT">
        <source>The card database [%1] could not be backed up before the restore, so it was left as it is. Check that everything in it can be read and that the disk has free space, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>復元の前に名刺データベース [%1] をバックアップできなかったため、そのままにしました。中のすべてのファイルを読み取れること、ディスクに空き容量があることを確認してから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_BACKUP_NOT_USABLE">
        <source>not usable</source>
        <extracomment>In the list of backups, in place of the number of cards.</extracomment>
        <translation>使用不可</translation>
    </message>
    <message id="IDS_BACKUP_NO_SPACE">
        <source>There is not enough free space in [%1] to restore the backup, so nothing was changed. Make room, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] の空き容量が足りないため、バックアップを復元できません。何も変更していません。空き容量を増やしてから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_BACKUP_NO_SUCH">
        <source>There is no backup named [%1] beside the card database [%2].</source>
        <extracomment>%1: name. %2: path.</extracomment>
        <translation>名刺データベース [%2] と同じ場所に、[%1] という名前のバックアップはありません。</translation>
    </message>
    <message id="IDS_BACKUP_PUT_BACK">
        <source>The backup [%1] could not be restored. The card database [%2] is as it was before. Check the access rights and the free space of its folder, then try again.</source>
        <extracomment>%1, %2: paths.</extracomment>
        <translation>バックアップ [%1] を復元できませんでした。名刺データベース [%2] は元のままです。フォルダーのアクセス権と空き容量を確認してから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_BACKUP_READING">
        <source>The backup [%1] is being read.</source>
        <extracomment>%1: name.</extracomment>
        <translation>バックアップ [%1] を確認しています。</translation>
    </message>
    <message id="IDS_BACKUP_RESTORED">
        <source>The card database [%1] has been restored from the backup [%2]. The backup is kept.</source>
        <extracomment>%1: path. %2: name.</extracomment>
        <translation>名刺データベース [%1] をバックアップ [%2] の状態に戻しました。バックアップはそのまま残ります。</translation>
    </message>
    <message id="IDS_BACKUP_RESTORE_FAILED">
        <source>The backup [%1] could not be restored, and the card database [%2] may be incomplete. The backup is intact. Check the access rights and the free space of the folder, then try again: you will be asked whether to restore it.</source>
        <extracomment>%1, %2: paths.</extracomment>
        <translation>バックアップ [%1] を復元できませんでした。名刺データベース [%2] は不完全な可能性があります。バックアップは無事です。フォルダーのアクセス権と空き容量を確認してから、もう一度実行してください。復元するかどうかの確認が表示されます。</translation>
    </message>
    <message id="IDS_BACKUP_UNFINISHED">
        <source>The last import into the card database [%1] did not finish, so nothing was changed. First decide whether to restore its backup or to keep the card database as it is.</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベース [%1] への前回のインポートが完了していません。先に、そのバックアップを復元するか、今の状態を残すかを選んでください。何も変更していません。</translation>
    </message>
    <message id="IDS_BACKUP_UNREADABLE">
        <source>The backup [%1] cannot be read completely, so nothing was changed. This part of it is damaged, or you may not read it: [%2]</source>
        <extracomment>%1: path. %2: path inside it.</extracomment>
        <translation>バックアップ [%1] を最後まで読み取れないため、何も変更しませんでした。破損しているか、読み取る権限がない部分: [%2]</translation>
    </message>
    <message id="IDS_BUTTON_BACKUPS">
        <source>Back&amp;ups…</source>
        <translation>バックアップ(&amp;U)...</translation>
    </message>
    <message id="IDS_BUTTON_CANCEL">
        <source>C&amp;ancel</source>
        <extracomment>Text of the start button while an operation runs.</extracomment>
        <translation>キャンセル(&amp;A)</translation>
    </message>
    <message id="IDS_BUTTON_CHECK">
        <source>Chec&amp;k</source>
        <translation>チェック(&amp;K)</translation>
    </message>
    <message id="IDS_BUTTON_CHECK_AGAIN">
        <source>Check A&amp;gain</source>
        <extracomment>In the window with the problems of an interchange folder.</extracomment>
        <translation>もう一度チェック(&amp;G)</translation>
    </message>
    <message id="IDS_BUTTON_CHOOSE_DATABASE">
        <source>Choose Databa&amp;se…</source>
        <extracomment>Opens the panel that chooses a card database.</extracomment>
        <translation>データベースを選択(&amp;S)...</translation>
    </message>
    <message id="IDS_BUTTON_CHOOSE_EXPORT">
        <source>&amp;Export cards</source>
        <extracomment>Choice of the first screen.</extracomment>
        <translation>名刺をエクスポート(&amp;E)</translation>
    </message>
    <message id="IDS_BUTTON_CHOOSE_FOLDER">
        <source>&amp;Choose Folder…</source>
        <extracomment>Opens the panel that chooses a folder.</extracomment>
        <translation>フォルダーを選択(&amp;C)...</translation>
    </message>
    <message id="IDS_BUTTON_CHOOSE_IMPORT">
        <source>&amp;Import cards</source>
        <extracomment>Choice of the first screen.</extracomment>
        <translation>名刺をインポート(&amp;I)</translation>
    </message>
    <message id="IDS_BUTTON_CLOSE">
        <source>&amp;Close</source>
        <translation>閉じる(&amp;C)</translation>
    </message>
    <message id="IDS_BUTTON_CONTINUE">
        <source>&amp;Continue</source>
        <extracomment>Goes from the first screen to the second.</extracomment>
        <translation>続ける(&amp;C)</translation>
    </message>
    <message id="IDS_BUTTON_COPY">
        <source>Copy</source>
        <extracomment>In the menu of a list of problems.</extracomment>
        <translation>コピー</translation>
    </message>
    <message id="IDS_BUTTON_COPY_ALL">
        <source>Copy &amp;All</source>
        <extracomment>Copies a list of problems.</extracomment>
        <translation>すべてコピー(&amp;A)</translation>
    </message>
    <message id="IDS_BUTTON_DELETE_BACKUP">
        <source>&amp;Delete…</source>
        <translation>削除(&amp;D)...</translation>
    </message>
    <message id="IDS_BUTTON_EXPORT">
        <source>&amp;Export</source>
        <extracomment>Button that starts the operation.</extracomment>
        <translation>エクスポート(&amp;E)</translation>
    </message>
    <message id="IDS_BUTTON_FIND_NEXT">
        <source>Find &amp;Next</source>
        <extracomment>In the viewer of the log.</extracomment>
        <translation>次を検索(&amp;N)</translation>
    </message>
    <message id="IDS_BUTTON_IMPORT">
        <source>&amp;Import</source>
        <extracomment>Button that starts the operation.</extracomment>
        <translation>インポート(&amp;I)</translation>
    </message>
    <message id="IDS_BUTTON_MSG_CANCEL">
        <source>Cancel</source>
        <translation>キャンセル</translation>
    </message>
    <message id="IDS_BUTTON_MSG_NO">
        <source>No</source>
        <translation>いいえ</translation>
    </message>
    <message id="IDS_BUTTON_MSG_OK">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="IDS_BUTTON_MSG_YES">
        <source>Yes</source>
        <translation>はい</translation>
    </message>
    <message id="IDS_BUTTON_OPEN_LOG">
        <source>Open &amp;Log</source>
        <translation>ログを開く(&amp;L)</translation>
    </message>
    <message id="IDS_BUTTON_OPEN_REPORT">
        <source>Open &amp;Report</source>
        <translation>レポートを開く(&amp;R)</translation>
    </message>
    <message id="IDS_BUTTON_QUIT">
        <source>&amp;Quit</source>
        <translation>終了(&amp;Q)</translation>
    </message>
    <message id="IDS_BUTTON_RESTORE_BACKUP">
        <source>&amp;Restore…</source>
        <translation>復元(&amp;R)...</translation>
    </message>
    <message id="IDS_BUTTON_RETURN">
        <source>&amp;Back</source>
        <extracomment>Goes back to the first screen.</extracomment>
        <translation>戻る(&amp;B)</translation>
    </message>
    <message id="IDS_BUTTON_SAVE_LIST">
        <source>&amp;Save…</source>
        <extracomment>Saves a list of problems.</extracomment>
        <translation>保存(&amp;S)...</translation>
    </message>
    <message id="IDS_BUTTON_STOP_CHECK">
        <source>S&amp;top</source>
        <extracomment>While an interchange folder is checked.</extracomment>
        <translation>中止(&amp;T)</translation>
    </message>
    <message id="IDS_CHECK_ATTACHMENT_FOLDER_MISSING">
        <source>Line %1 [%2]: the attachment folder [%3] does not exist, and an import would stop there. Check the name in the data file, or put the folder in this place.</source>
        <extracomment>%1: line of the data file. %2: full name on the card. %3: path.</extracomment>
        <translation>%1行目 [%2]: 添付ファイルのフォルダー [%3] がないため、インポートはここで中断されます。データファイルの名前を確認するか、この場所にフォルダーを置いてください。</translation>
    </message>
    <message id="IDS_CHECK_CARDS_AND_SPACE">
        <source>Cards in the data file: %L1. Free space that an import needs: %2.</source>
        <extracomment>%L1: count. %2: size with its unit.</extracomment>
        <translation>データファイルの名刺: %L1件、インポートに必要な空き容量: %2</translation>
    </message>
    <message id="IDS_CHECK_DATA_FILE_EMPTY">
        <source>The data file [%1] holds no cards. It needs the title line and at least one line for a card.</source>
        <extracomment>%1: path.</extracomment>
        <translation>データファイル [%1] に名刺のデータがありません。タイトル行と1件以上のデータ行が必要です。</translation>
    </message>
    <message id="IDS_CHECK_DATA_FILE_ENCODING">
        <source>The data file [%1] is not UTF-16 text. Save it as Unicode text (UTF-16).</source>
        <extracomment>%1: path.</extracomment>
        <translation>データファイル [%1] はUTF-16のテキストではありません。Unicodeテキスト (UTF-16) で保存してください。</translation>
    </message>
    <message id="IDS_CHECK_DATA_FILE_MISSING">
        <source>The data file [%1] is missing. Put it in this place under this name.</source>
        <extracomment>%1: path.</extracomment>
        <translation>データファイル [%1] がありません。この名前でこの場所に置いてください。</translation>
    </message>
    <message id="IDS_CHECK_DATA_FILE_UNREADABLE">
        <source>The data file [%1] could not be read (code %2). Check that you may read it.</source>
        <extracomment>%1: path. %2: result code.</extracomment>
        <translation>データファイル [%1] を読み取れませんでした (コード %2)。ファイルを読み取れることを確認してください。</translation>
    </message>
    <message id="IDS_CHECK_FILE_UNREADABLE">
        <source>Line %1 [%2]: [%3] cannot be read. Check that you may read it.</source>
        <extracomment>%1: line of the data file. %2: full name on the card. %3: path.</extracomment>
        <translation>%1行目 [%2]: [%3] を読み取れません。ファイルを読み取れることを確認してください。</translation>
    </message>
    <message id="IDS_CHECK_FOLDER_MISSING">
        <source>The interchange folder [%1] does not exist. Choose an existing folder.</source>
        <extracomment>%1: path.</extracomment>
        <translation>データフォルダー [%1] が見つかりません。存在するフォルダーを選択してください。</translation>
    </message>
    <message id="IDS_CHECK_FOLDER_UNREADABLE">
        <source>The interchange folder [%1] cannot be read. Check that you may read it.</source>
        <extracomment>%1: path.</extracomment>
        <translation>データフォルダー [%1] を読み取れません。フォルダーを読み取れることを確認してください。</translation>
    </message>
    <message id="IDS_CHECK_IMAGE_MISSING">
        <source>Line %1 [%2]: the image [%3] does not exist, so the card would be imported without it. Check the name in the data file, or put the image in this place.</source>
        <extracomment>%1: line of the data file. %2: full name on the card. %3: path.</extracomment>
        <translation>%1行目 [%2]: 画像 [%3] がないため、この名刺は画像なしでインポートされます。データファイルの名前を確認するか、この場所に画像を置いてください。</translation>
    </message>
    <message id="IDS_CHECK_IMAGE_NO_JPEG">
        <source>Line %1 [%2]: [%3] is not a JPEG image, so the card would be imported without images. Save it as a JPEG file.</source>
        <extracomment>%1: line of the data file. %2: full name on the card. %3: path.</extracomment>
        <translation>%1行目 [%2]: [%3] はJPEG画像ではないため、この名刺は画像なしでインポートされます。JPEGファイルとして保存してください。</translation>
    </message>
    <message id="IDS_CHECK_LINES">
        <source>Line %L1 of %L2</source>
        <extracomment>%L1, %L2: numbers of lines.</extracomment>
        <translation>%L1行目 (全%L2行)</translation>
    </message>
    <message id="IDS_CHECK_NO_PROBLEMS">
        <source>No problems were found in [%1].</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] に問題は見つかりませんでした。</translation>
    </message>
    <message id="IDS_CHECK_PROBLEMS">
        <source>Problems found in [%1]: %L2.</source>
        <extracomment>%1: path. %L2: count.</extracomment>
        <translation>[%1] に%L2件の問題が見つかりました。</translation>
    </message>
    <message id="IDS_CHECK_RUNNING">
        <source>Checking the interchange folder [%1]…</source>
        <extracomment>%1: path.</extracomment>
        <translation>データフォルダー [%1] をチェックしています...</translation>
    </message>
    <message id="IDS_CHECK_SIZE">
        <source>The size of [%1] could not be measured. Check that you may read everything in it.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] のサイズを測定できませんでした。中のすべてのファイルを読み取れることを確認してください。</translation>
    </message>
    <message id="IDS_CHECK_STOPPED">
        <source>The check was stopped, so there may be further problems.</source>
        <translation>チェックを中止しました。ほかにも問題がある可能性があります。</translation>
    </message>
    <message id="IDS_CHECK_VERSION_MISSING">
        <source>[%1] is missing or is not UTF-16 text, so the folder cannot be imported. Choose an interchange folder of version %2, or put the file of such a folder in this place.</source>
        <extracomment>%1: path. %2: version.</extracomment>
        <translation>[%1] がないか、UTF-16のテキストではないため、このフォルダーはインポートできません。バージョン%2のデータフォルダーを選択するか、そのフォルダーにあるファイルをこの場所に置いてください。</translation>
    </message>
    <message id="IDS_CHECK_VERSION_OTHER">
        <source>[%1] names a version other than %2, so the folder cannot be imported. Choose an interchange folder of that version.</source>
        <extracomment>%1: path. %2: version.</extracomment>
        <translation>[%1] のバージョンが%2ではないため、このフォルダーはインポートできません。バージョン%2のデータフォルダーを選択してください。</translation>
    </message>
    <message id="IDS_CHECK_VERSION_PRODUCT">
        <source>[%1] says that VelmoraConverter exported this folder, and such a folder cannot be imported again. Choose an interchange folder that another program made for import.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] によると、このフォルダーはVelmoraConverterがエクスポートしたもので、再びインポートすることはできません。インポート用に作成されたデータフォルダーを選択してください。</translation>
    </message>
    <message id="IDS_CLI_BACKUP">
        <source>Backup of the card database from before the import: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>インポート前の名刺データベースのバックアップ: [%1]</translation>
    </message>
    <message id="IDS_CLI_CREATED">
        <source>An empty card database was created: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>空の名刺データベースを作成しました: [%1]</translation>
    </message>
    <message id="IDS_CLI_ERR_BACKUP_NAME">
        <source>--restore and --delete can be used only with "backups", one at a time, and each needs the name of a backup.</source>
        <translation>--restore と --delete は「backups」でだけ使用できます。どちらか1つに、バックアップの名前を付けて指定してください。</translation>
    </message>
    <message id="IDS_CLI_ERR_NO_COMMAND">
        <source>A command is missing: import, export, check, verify, create, recover or backups.</source>
        <translation>コマンドを指定してください (import、export、check、verify、create、recover、backups)。</translation>
    </message>
    <message id="IDS_CLI_ERR_OPERANDS">
        <source>Wrong paths for &quot;%1&quot;. Usage: velmora-convert %1 %2</source>
        <extracomment>%1: command. %2: names of its paths.</extracomment>
        <translation>「%1」に指定したパスが正しくありません。次のように指定してください: velmora-convert %1 %2</translation>
    </message>
    <message id="IDS_CLI_ERR_OPTION_VALUE">
        <source>The options take no values.</source>
        <translation>オプションに値は指定できません。</translation>
    </message>
    <message id="IDS_CLI_ERR_RECOVER_CHOICE">
        <source>--keep can be used only with "recover", and not together with --restore.</source>
        <translation>--keep は「recover」でだけ使用できます。--restore と同時には指定できません。</translation>
    </message>
    <message id="IDS_CLI_ERR_UNKNOWN_COMMAND">
        <source>There is no command &quot;%1&quot;. The commands are import, export, check, verify, create, recover and backups.</source>
        <extracomment>%1: the unknown command.</extracomment>
        <translation>「%1」というコマンドはありません。使用できるコマンドは、import、export、check、verify、create、recover、backupsです。</translation>
    </message>
    <message id="IDS_CLI_ERR_UNKNOWN_OPTION">
        <source>There is no option &quot;%1&quot;.</source>
        <extracomment>%1: option.</extracomment>
        <translation>「%1」というオプションはありません。</translation>
    </message>
    <message id="IDS_CLI_EXPORTED">
        <source>Cards exported: %L1 of %L2, into the folder [%3].</source>
        <extracomment>%L1: cards done. %L2: cards in all. %3: path.</extracomment>
        <translation>エクスポートした名刺: %L1件 (全%L2件)、エクスポート先: [%3]</translation>
    </message>
    <message id="IDS_CLI_EXPORT_CANCELLED">
        <source>The export was cancelled. The folder [%1] was removed.</source>
        <extracomment>%1: path.</extracomment>
        <translation>エクスポートを中止しました。フォルダー [%1] は削除しました。</translation>
    </message>
    <message id="IDS_CLI_EXPORT_FAILED">
        <source>The export into the folder [%3] failed after %L1 of %L2 cards.</source>
        <extracomment>%L1: cards done. %L2: cards in all. %3: path.</extracomment>
        <translation>エクスポートに失敗しました (%L1件/全%L2件)。エクスポート先: [%3]</translation>
    </message>
    <message id="IDS_CLI_HELP_BACKUPS">
        <source>Lists the backups beside the card database PACKAGE, or restores or deletes one of them.</source>
        <translation>名刺データベース PACKAGE と同じ場所にあるバックアップを表示します。復元や削除もできます。</translation>
    </message>
    <message id="IDS_CLI_HELP_CHECK">
        <source>Lists every problem in the interchange folder FOLDER; changes nothing.</source>
        <translation>データフォルダー FOLDER の問題をすべて表示します。何も変更しません。</translation>
    </message>
    <message id="IDS_CLI_HELP_CREATE">
        <source>Creates the empty card database PACKAGE (.vmdb).</source>
        <translation>空の名刺データベース PACKAGE (.vmdb) を作成します。</translation>
    </message>
    <message id="IDS_CLI_HELP_DELETE">
        <source>With backups: deletes the backup NAME.</source>
        <translation>backups で使用します。バックアップ NAME を削除します。</translation>
    </message>
    <message id="IDS_CLI_HELP_EXIT">
        <source>Exit status: 0 done; 1 failed; 2 wrong usage; 3 refused before the operation began; 4 done, with warnings or errors in the log; 130 cancelled. check and verify: 0 no problems, 4 problems found, 1 could not be read.</source>
        <translation>終了コード: 0 完了、1 失敗、2 使い方の誤り、3 開始前に中断、4 完了 (ログに警告またはエラーあり)、130 中止。checkとverify: 0 問題なし、4 問題あり、1 読み取れず。</translation>
    </message>
    <message id="IDS_CLI_HELP_EXPORT">
        <source>Exports the card database PACKAGE into a new interchange folder inside the folder PARENT.</source>
        <translation>名刺データベース PACKAGE を、フォルダー PARENT の中の新しいデータフォルダーにエクスポートします。</translation>
    </message>
    <message id="IDS_CLI_HELP_HELP">
        <source>Shows this help.</source>
        <translation>このヘルプを表示します。</translation>
    </message>
    <message id="IDS_CLI_HELP_IMPORT">
        <source>Imports the interchange folder FOLDER into the card database PACKAGE.</source>
        <translation>データフォルダー FOLDER を名刺データベース PACKAGE にインポートします。</translation>
    </message>
    <message id="IDS_CLI_HELP_JSON">
        <source>Writes one JSON object per line to standard output; the last line is the result.</source>
        <translation>標準出力に1行に1つのJSONオブジェクトを出力します。最後の行が結果です。</translation>
    </message>
    <message id="IDS_CLI_HELP_KEEP">
        <source>With recover: keeps the card database as it is, without a question.</source>
        <translation>recover で使用します。確認せずに、名刺データベースをそのまま残します。</translation>
    </message>
    <message id="IDS_CLI_HELP_QUIET">
        <source>Shows errors and problems only, neither progress nor summary.</source>
        <translation>エラーと問題だけを表示し、進行状況と結果は表示しません。</translation>
    </message>
    <message id="IDS_CLI_HELP_RECOVER">
        <source>After an import into the card database PACKAGE that did not finish: restores its backup, or keeps the card database as it is.</source>
        <translation>完了しなかったインポートのあとの名刺データベース PACKAGE を、バックアップから復元するか、そのまま残します。</translation>
    </message>
    <message id="IDS_CLI_HELP_RESTORE">
        <source>With backups: restores the card database from the backup NAME. The current card database is backed up first. With recover, without NAME: restores the backup of the unfinished import, without a question.</source>
        <translation>backups で使用します。名刺データベースをバックアップ NAME の状態に戻します。現在の名刺データベースは先にバックアップします。recover では NAME を付けずに使用し、完了しなかったインポートのバックアップを確認せずに復元します。</translation>
    </message>
    <message id="IDS_CLI_HELP_USAGE">
        <source>velmora-convert moves business cards between a card database and an interchange folder. Usage: velmora-convert COMMAND [OPTIONS]</source>
        <translation>velmora-convertは、名刺データベースとデータフォルダーの間で名刺を移します。使い方: velmora-convert コマンド [オプション]</translation>
    </message>
    <message id="IDS_CLI_HELP_VERIFY">
        <source>Lists every problem in the card database PACKAGE; changes nothing.</source>
        <translation>名刺データベース PACKAGE の問題をすべて表示します。何も変更しません。</translation>
    </message>
    <message id="IDS_CLI_HELP_VERSION">
        <source>Shows the version.</source>
        <translation>バージョンを表示します。</translation>
    </message>
    <message id="IDS_CLI_HELP_YES">
        <source>Answers every question with Yes.</source>
        <translation>すべての質問に「はい」と答えます。</translation>
    </message>
    <message id="IDS_CLI_IMPORTED">
        <source>Cards imported: %L1 of %L2, into the card database [%3].</source>
        <extracomment>%L1: cards done. %L2: cards in all. %3: path.</extracomment>
        <translation>インポートした名刺: %L1件 (全%L2件)、インポート先: [%3]</translation>
    </message>
    <message id="IDS_CLI_IMPORT_CANCELLED">
        <source>The import was cancelled. The card database [%1] is as it was before.</source>
        <extracomment>%1: path.</extracomment>
        <translation>インポートを中止しました。名刺データベース [%1] はインポート前の状態です。</translation>
    </message>
    <message id="IDS_CLI_IMPORT_FAILED">
        <source>The import into the card database [%3] failed after %L1 of %L2 cards.</source>
        <extracomment>%L1: cards done. %L2: cards in all. %3: path.</extracomment>
        <translation>インポートに失敗しました (%L1件/全%L2件)。インポート先: [%3]</translation>
    </message>
    <message id="IDS_CLI_LOG">
        <source>Log: [%1], warnings: %L2, errors: %L3</source>
        <extracomment>%1: path. %L2 and %L3: counts.</extracomment>
        <translation>ログ: [%1]、警告: %L2件、エラー: %L3件</translation>
    </message>
    <message id="IDS_CLI_NEEDS_DECISION">
        <source>%1 --yes does not answer this question. Decide with "velmora-convert recover --restore PACKAGE" or "velmora-convert recover --keep PACKAGE", then run the command again.</source>
        <extracomment>%1: question.</extracomment>
        <translation>%1 この質問には --yes では答えられません。「velmora-convert recover --restore PACKAGE」または「velmora-convert recover --keep PACKAGE」で処理を選んでから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_CLI_NEEDS_YES">
        <source>%1 Nobody can answer this question here, so the answer is taken to be No. Run the command again with --yes to answer Yes, or run it in a terminal.</source>
        <extracomment>%1: question.</extracomment>
        <translation>%1 ここでは質問に答えられないため、「いいえ」として扱いました。「はい」と答えるには、--yesを付けるか、端末でもう一度実行してください。</translation>
    </message>
    <message id="IDS_CLI_NO_LOG">
        <source>No log could be written at [%1], so warnings are not counted. Check that you may write there.</source>
        <extracomment>%1: path.</extracomment>
        <translation>ログ [%1] に書き込めないため、警告は数えていません。この場所に書き込めることを確認してください。</translation>
    </message>
    <message id="IDS_CLI_PROGRESS">
        <source>%1 (%L2 of %L3)</source>
        <extracomment>%1: percentage with its text. %L2: cards done. %L3: cards in all.</extracomment>
        <translation>%1 (%L2/%L3件)</translation>
    </message>
    <message id="IDS_CLI_PROGRESS_TIME">
        <source>%1 (%L2 of %L3), time left %4</source>
        <extracomment>%1: percentage with its text. %L2: cards done. %L3: cards in all. %4: time.</extracomment>
        <translation>%1 (%L2/%L3件)、残り時間 %4</translation>
    </message>
    <message id="IDS_CLI_PROMPT">
        <source>%1 [y/N]</source>
        <extracomment>%1: question. Answered with y or n in every language.</extracomment>
        <translation>%1 [y/N]</translation>
    </message>
    <message id="IDS_CLI_RECOVER_CHANGES">
        <source>Another program had changed it since the import; that state is kept as [%1].</source>
        <extracomment>%1: path. Follows IDS_CLI_RECOVER_RESTORED or IDS_CLI_RECOVER_KEPT.</extracomment>
        <translation>インポートのあとでほかのプログラムが変更した内容は、[%1] として残しました。</translation>
    </message>
    <message id="IDS_CLI_RECOVER_KEPT">
        <source>The card database [%1] and its backup stay as they are.</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベース [%1] とバックアップをそのまま残しました。</translation>
    </message>
    <message id="IDS_CLI_RECOVER_NOTHING">
        <source>No import into the card database [%1] was interrupted, so there is nothing to recover.</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベース [%1] に、中断されたインポートはありません。復元の必要はありません。</translation>
    </message>
    <message id="IDS_CLI_RECOVER_RESTORED">
        <source>The card database [%1] is as it was before the import that did not finish.</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベース [%1] を、完了しなかったインポートの前の状態に戻しました。</translation>
    </message>
    <message id="IDS_CLI_REPORT">
        <source>Report: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>レポート: [%1]</translation>
    </message>
    <message id="IDS_CLI_TRY_HELP">
        <source>&quot;velmora-convert --help&quot; shows all commands and options.</source>
        <translation>すべてのコマンドとオプションは「velmora-convert --help」で確認できます。</translation>
    </message>
    <message id="IDS_CLI_VERIFIED">
        <source>Cards in the card database: %L1.</source>
        <extracomment>%L1: count.</extracomment>
        <translation>名刺データベースの名刺: %L1件</translation>
    </message>
    <message id="IDS_CLI_VERIFY_PROGRESS">
        <source>Verifying: %1%</source>
        <extracomment>%1: percentage.</extracomment>
        <translation>検査中: %1%</translation>
    </message>
    <message id="IDS_CREATE_EXISTS">
        <source>A file or folder already exists at [%1], so nothing was changed. Choose another name, or move the existing one away first.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] にはすでにファイルまたはフォルダーがあるため、何も変更していません。別の名前を指定するか、先に既存のものを移動してください。</translation>
    </message>
    <message id="IDS_CREATE_FAILED">
        <source>The card database [%1] could not be created: %2. The incomplete card database was removed. Check that you may write there and that the disk has free space, then try again.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>名刺データベース [%1] を作成できませんでした: %2。作成途中のものは削除しました。作成先に書き込めること、ディスクに空き容量があることを確認して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_CREATE_NO_PARENT">
        <source>The folder [%1], in which the card database is to be created, does not exist. Create the folder first, or check the path.</source>
        <extracomment>%1: folder.</extracomment>
        <translation>名刺データベースの作成先フォルダー [%1] がありません。先にフォルダーを作成するか、パスを確認してください。</translation>
    </message>
    <message id="IDS_CREATE_WRONG_NAME">
        <source>[%1] cannot be the name of a card database. Choose a name that ends in &quot;.vmdb&quot;.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] は名刺データベースの名前として使用できません。末尾が「.vmdb」の名前を指定してください。</translation>
    </message>
    <message id="IDS_CSV_TITLE_ATT_FILE">
        <source>添付ファイル</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>添付ファイル</translation>
    </message>
    <message id="IDS_CSV_TITLE_DEPARTMENT">
        <source>部署</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>部署</translation>
    </message>
    <message id="IDS_CSV_TITLE_ENTRY_DATE">
        <source>登録日</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>登録日</translation>
    </message>
    <message id="IDS_CSV_TITLE_FULL_NAME">
        <source>氏名</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>氏名</translation>
    </message>
    <message id="IDS_CSV_TITLE_FULL_NAME_S">
        <source>氏名(フリガナ)</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>氏名(フリガナ)</translation>
    </message>
    <message id="IDS_CSV_TITLE_IMG_BACK">
        <source>名刺画像(裏)</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>名刺画像(裏)</translation>
    </message>
    <message id="IDS_CSV_TITLE_IMG_FACE">
        <source>名刺画像(表)</source>
        <extracomment>Column title, the same in every language. Changing it makes older files unreadable.</extracomment>
        <translation>名刺画像(表)</translation>
    </message>
    <message id="IDS_CSV_TITLE_JOB_TITLE">
        <source>役職</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>役職</translation>
    </message>
    <message id="IDS_CSV_TITLE_MEMO1">
        <source>メモ</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>メモ</translation>
    </message>
    <message id="IDS_CSV_TITLE_OFFICE_ADDRESS">
        <source>住所</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>住所</translation>
    </message>
    <message id="IDS_CSV_TITLE_OFFICE_ADDRESS_CITY">
        <source>市区町村</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>市区町村</translation>
    </message>
    <message id="IDS_CSV_TITLE_OFFICE_ADDRESS_STATE">
        <source>都道府県</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>都道府県</translation>
    </message>
    <message id="IDS_CSV_TITLE_OFFICE_ADDRESS_STREET">
        <source>町名・番地</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>町名・番地</translation>
    </message>
    <message id="IDS_CSV_TITLE_OFFICE_E_MAIL">
        <source>メールアドレス</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>メールアドレス</translation>
    </message>
    <message id="IDS_CSV_TITLE_OFFICE_FAX">
        <source>FAX番号</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>FAX番号</translation>
    </message>
    <message id="IDS_CSV_TITLE_OFFICE_MOBILE_PHONE">
        <source>携帯電話番号</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>携帯電話番号</translation>
    </message>
    <message id="IDS_CSV_TITLE_OFFICE_NAME">
        <source>会社名</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>会社名</translation>
    </message>
    <message id="IDS_CSV_TITLE_OFFICE_NAME_S">
        <source>会社名(フリガナ)</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>会社名(フリガナ)</translation>
    </message>
    <message id="IDS_CSV_TITLE_OFFICE_PHONE">
        <source>電話番号</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>電話番号</translation>
    </message>
    <message id="IDS_CSV_TITLE_OFFICE_POST">
        <source>郵便番号</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>郵便番号</translation>
    </message>
    <message id="IDS_CSV_TITLE_OFFICE_WEB">
        <source>Webページ</source>
        <extracomment>Column title, the same in every language.</extracomment>
        <translation>Webページ</translation>
    </message>
    <message id="IDS_FOLDER_STRUCT_ATTACHMENT">
        <source>添付ファイル</source>
        <extracomment>Name on disk, the same in every language. Changing it makes older folders unreadable.</extracomment>
        <translation>添付ファイル</translation>
    </message>
    <message id="IDS_FOLDER_STRUCT_DataFileName">
        <source>名刺データ.txt</source>
        <extracomment>Name on disk, the same in every language. Changing it makes older folders unreadable.</extracomment>
        <translation>名刺データ.txt</translation>
    </message>
    <message id="IDS_FOLDER_STRUCT_ROOT">
        <source>名刺データ</source>
        <extracomment>Name on disk, the same in every language. Changing it makes older folders unreadable.</extracomment>
        <translation>名刺データ</translation>
    </message>
    <message id="IDS_FOLDER_STRUCT_STANDARD">
        <source>名刺画像</source>
        <extracomment>Name on disk, the same in every language. Changing it makes older folders unreadable.</extracomment>
        <translation>名刺画像</translation>
    </message>
    <message id="IDS_LABEL_BACKUPS">
        <source>Shows the backups of this card database, to restore or to delete them.</source>
        <extracomment>Describes the Backups button.</extracomment>
        <translation>この名刺データベースのバックアップを表示し、復元または削除します。</translation>
    </message>
    <message id="IDS_LABEL_CHECK">
        <source>Lists every problem in the interchange folder and changes nothing.</source>
        <extracomment>Describes the Check button.</extracomment>
        <translation>データフォルダーの問題をすべて表示します。何も変更しません。</translation>
    </message>
    <message id="IDS_LABEL_CHOICE">
        <source>What would you like to do?</source>
        <extracomment>Title of the first screen.</extracomment>
        <translation>実行する処理を選択してください</translation>
    </message>
    <message id="IDS_LABEL_CHOICE_EXPORT">
        <source>Writes every card of a card database into a folder, as a data file with images and attachments.</source>
        <translation>名刺データベースのすべての名刺を、データファイル、画像、添付ファイルとしてフォルダーに書き出します。</translation>
    </message>
    <message id="IDS_LABEL_CHOICE_IMPORT">
        <source>Adds the cards of an interchange folder to a card database. The card database is backed up first.</source>
        <translation>データフォルダーの名刺を名刺データベースに追加します。追加する前に、名刺データベースをバックアップします。</translation>
    </message>
    <message id="IDS_LABEL_CLOSE_LATER">
        <source>VelmoraConverter is still working on the card database. Cancel first, or wait until it has finished.</source>
        <extracomment>Says why the window does not close.</extracomment>
        <translation>名刺データベースを処理中です。先にキャンセルするか、終了するまでお待ちください。</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_CARDS">
        <source>Cards</source>
        <extracomment>Heading of a column: number of cards.</extracomment>
        <translation>名刺の件数</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_FILE">
        <source>File</source>
        <extracomment>Heading of a column: files or folders.</extracomment>
        <translation>ファイル</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_LINE">
        <source>Line</source>
        <extracomment>Heading of a column: lines of the data file.</extracomment>
        <translation>行</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_MADE">
        <source>Made</source>
        <extracomment>Heading of a column: when backups were made.</extracomment>
        <translation>作成日時</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_NAME">
        <source>Name</source>
        <extracomment>Heading of a column: names of backups.</extracomment>
        <translation>名前</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_PROBLEM">
        <source>Problem</source>
        <extracomment>Heading of a column.</extracomment>
        <translation>問題</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_SIZE">
        <source>Size</source>
        <extracomment>Heading of a column.</extracomment>
        <translation>サイズ</translation>
    </message>
    <message id="IDS_LABEL_CURRENT_CARD">
        <source>Card: %1</source>
        <extracomment>%1: full name on the card.</extracomment>
        <translation>名刺: %1</translation>
    </message>
    <message id="IDS_LABEL_EXPORT_DATA_PATH">
        <source>F&amp;older to export into:</source>
        <translation>エクスポート先のフォルダー(&amp;O):</translation>
    </message>
    <message id="IDS_LABEL_EXPORT_VMDB_PATH">
        <source>Card &amp;database to export:</source>
        <translation>エクスポートする名刺データベース(&amp;D):</translation>
    </message>
    <message id="IDS_LABEL_FIND">
        <source>&amp;Find:</source>
        <extracomment>In the viewer of the log.</extracomment>
        <translation>検索(&amp;F):</translation>
    </message>
    <message id="IDS_LABEL_IMPORT_DATA_PATH">
        <source>Interchange f&amp;older to import:</source>
        <translation>インポートするデータフォルダー(&amp;O):</translation>
    </message>
    <message id="IDS_LABEL_IMPORT_VMDB_PATH">
        <source>Card &amp;database to import into:</source>
        <translation>インポート先の名刺データベース(&amp;D):</translation>
    </message>
    <message id="IDS_LABEL_KEEP_AWAKE">
        <source>Business cards are being converted.</source>
        <extracomment>Reason given to the desktop for keeping the computer awake.</extracomment>
        <translation>名刺データを変換しています。</translation>
    </message>
    <message id="IDS_LABEL_LAST_PATH">
        <source>Last time: %1 (press ↓)</source>
        <extracomment>Shown in the empty field. %1: path. Down takes it over.</extracomment>
        <translation>前回: %1 (↓キーで入力)</translation>
    </message>
    <message id="IDS_LABEL_LOG_TAIL">
        <source>Only the end of this long log is shown. All of it is in [%1].</source>
        <extracomment>Shown above the log in its viewer. %1: path.</extracomment>
        <translation>ログの末尾だけを表示しています。全体は [%1] にあります。</translation>
    </message>
    <message id="IDS_LABEL_MENU">
        <source>&amp;File</source>
        <extracomment>The menu that holds Quit.</extracomment>
        <translation>ファイル(&amp;F)</translation>
    </message>
    <message id="IDS_LABEL_MINUTES_LEFT">
        <source>About %L1 min left</source>
        <extracomment>%L1: minutes, 1 and more.</extracomment>
        <translation>残り約%L1分</translation>
    </message>
    <message id="IDS_LABEL_NOT_FOUND">
        <source>“%1” was not found.</source>
        <extracomment>In the viewer of the log. %1: the text searched for.</extracomment>
        <translation>「%1」は見つかりません。</translation>
    </message>
    <message id="IDS_LABEL_NO_PROBLEMS">
        <source>No problems were found.</source>
        <extracomment>Result of a check.</extracomment>
        <translation>問題は見つかりませんでした。</translation>
    </message>
    <message id="IDS_LABEL_NO_SINGLE_COPY">
        <source>VelmoraConverter was not started: another copy seems to be running but does not answer, or its runtime folder cannot be used. Quit the other copy, or log out and in again, then start it once more.</source>
        <extracomment>Written to the terminal.</extracomment>
        <translation>VelmoraConverterを起動しませんでした。すでに起動しているものが応答しないか、実行時用のフォルダーを使用できません。起動しているものを終了するか、ログインし直してから、もう一度起動してください。</translation>
    </message>
    <message id="IDS_LABEL_OPEN_REPORT">
        <source>Open the report about this run. Cards with warnings or errors: %L1</source>
        <extracomment>%L1: number of cards.</extracomment>
        <translation>この処理のレポートを開きます。警告またはエラーのある名刺: %L1件</translation>
    </message>
    <message id="IDS_LABEL_PATH_IS_FILE">
        <source>This is a file. Choose a folder.</source>
        <extracomment>Below a path field.</extracomment>
        <translation>これはファイルです。フォルダーを選択してください。</translation>
    </message>
    <message id="IDS_LABEL_PATH_NOT_FOUND">
        <source>There is nothing at this path. Check it, or choose with the button.</source>
        <extracomment>Below a path field.</extracomment>
        <translation>このパスには何もありません。パスを確認するか、ボタンで選択してください。</translation>
    </message>
    <message id="IDS_LABEL_PATH_NO_DATABASE">
        <source>This folder is not a card database. Choose a folder whose name ends in ".vmdb".</source>
        <extracomment>Below a path field.</extracomment>
        <translation>このフォルダーは名刺データベースではありません。名前の末尾が「.vmdb」のフォルダーを選択してください。</translation>
    </message>
    <message id="IDS_LABEL_PATH_NO_DATA_FILE">
        <source>This folder does not contain the file [%1]. Choose the folder that contains it.</source>
        <extracomment>Below a path field. %1: name of the data file.</extracomment>
        <translation>このフォルダーに [%1] がありません。このファイルがあるフォルダーを選択してください。</translation>
    </message>
    <message id="IDS_LABEL_PROGRESS">
        <source>Progress</source>
        <extracomment>Name of the progress bar for a screen reader.</extracomment>
        <translation>進行状況</translation>
    </message>
    <message id="IDS_LABEL_SECONDS_LEFT">
        <source>Less than a minute left</source>
        <translation>残り1分未満</translation>
    </message>
    <message id="IDS_LABEL_SELECTED_PROBLEM">
        <source>Selected problem</source>
        <extracomment>Name of the field with the whole text of a problem, for a screen reader.</extracomment>
        <translation>選択した問題</translation>
    </message>
    <message id="IDS_LBL_BACKUP">
        <source>Backup</source>
        <extracomment>Name of the operation, also the first argument of other texts.</extracomment>
        <translation>バックアップ</translation>
    </message>
    <message id="IDS_LBL_DELETE_BACKUP">
        <source>Deletion of a backup</source>
        <extracomment>Name of the operation, also the first argument of other texts.</extracomment>
        <translation>バックアップの削除</translation>
    </message>
    <message id="IDS_LBL_EXPORT">
        <source>Export</source>
        <extracomment>Name of the operation, also the first argument of other texts.</extracomment>
        <translation>エクスポート</translation>
    </message>
    <message id="IDS_LBL_IMPORT">
        <source>Import</source>
        <extracomment>Name of the operation, also the first argument of other texts.</extracomment>
        <translation>インポート</translation>
    </message>
    <message id="IDS_LBL_RESTORE">
        <source>Restore</source>
        <extracomment>Name of the operation, also the first argument of other texts.</extracomment>
        <translation>復元</translation>
    </message>
    <message id="IDS_LIST_COPIED">
        <source>Problems copied: %L1</source>
        <extracomment>%L1: count.</extracomment>
        <translation>問題をコピーしました: %L1件</translation>
    </message>
    <message id="IDS_LIST_NAME">
        <source>Problems of %1.tsv</source>
        <extracomment>Proposed name of a file. %1: name of a folder.</extracomment>
        <translation>%1の問題.tsv</translation>
    </message>
    <message id="IDS_LIST_NOT_SAVED">
        <source>The list could not be saved as [%1] (%2). Check that you may write there and that the disk has free space, then try again.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>一覧を [%1] に保存できませんでした (%2)。書き込む権限とディスクの空き容量を確認してから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LIST_SAVED">
        <source>The list was saved: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>一覧を保存しました: [%1]</translation>
    </message>
    <message id="IDS_LIST_TITLE">
        <source>Save the List of Problems</source>
        <extracomment>Title of a panel.</extracomment>
        <translation>問題の一覧の保存</translation>
    </message>
    <message id="IDS_LIST_TYPE">
        <source>Tab-separated text (*.tsv)</source>
        <extracomment>Kind of a file.</extracomment>
        <translation>タブ区切りテキスト (*.tsv)</translation>
    </message>
    <message id="IDS_LOG_ERR_ATTACHMENT_COPY_FAILURE">
        <source>An attachment could not be copied. Check that the attachment can be read and that the destination can be written to.</source>
        <translation>添付ファイルをコピーできませんでした。添付ファイルを読み取れること、コピー先に書き込めることを確認してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_COPY_DIFFERS">
        <source>The copy of the card database [%1] is not the same as the original at [%2]. Another program is changing the card database, or the disk is faulty: quit other programs that use it, check the disk, then try again.</source>
        <extracomment>%1: path of the original. %2: path below it, or nothing.</extracomment>
        <translation>名刺データベース [%1] のコピーが、[%2] で元と一致しません。ほかのプログラムが名刺データベースを変更しているか、ディスクに異常があります。使用中のプログラムを終了し、ディスクを確認してから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_DATA_FILE_TOO_LARGE">
        <source>The data file [%1] has %L2 bytes, which is too large to be read: the limit is %L3 bytes. Divide the data file and import the parts one after the other.</source>
        <extracomment>%1: path of the data file. %L2: its size. %L3: largest size.</extracomment>
        <translation>データファイル [%1] は%L2バイトあり、大きすぎて読み込めません (上限 %L3バイト)。データファイルを分割し、順番にインポートしてください。</translation>
    </message>
    <message id="IDS_LOG_ERR_DATA_FILE_WRITE_FAILURE">
        <source>The data file could not be written. Check that the export folder can be written to and that the disk has free space.</source>
        <translation>データファイルに書き込めませんでした。エクスポート先のフォルダーに書き込めること、ディスクに空き容量があることを確認してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_DATA_LINE">
        <source>Line %1 of [%2]: the line has %4 items, but %3 are needed. Check the line for missing or surplus tabs and for line breaks inside an item, then try again.</source>
        <extracomment>%1: line. %2: path of the data file. %3: items needed. %4: items found.</extracomment>
        <translation>[%2] の%1行目: 項目数が%4個です。必要な項目数は%3個です。タブの不足や余分、項目の中の改行がないか確認して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_DISK_FLUSH">
        <source>What was written to [%1] did not reach the disk. Check the disk and its free space, then try again.</source>
        <extracomment>%1: path of the card database.</extracomment>
        <translation>[%1] に書き込んだ内容がディスクに保存されませんでした。ディスクの状態と空き容量を確認してから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_IMAGE_FILE_COPY_FAILURE">
        <source>A card image could not be written. Check that the image folder of the export can be written to and that the disk has free space.</source>
        <translation>名刺画像を書き込めませんでした。エクスポート先の画像フォルダーに書き込めること、ディスクに空き容量があることを確認してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_JOURNAL">
        <source>The file [%1], which records that an import is running, could not be written. Check that its folder can be written to, that the disk has free space and that no other import into this card database is running, then import again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>インポート中であることを示すファイル [%1] を書き込めませんでした。フォルダーに書き込めること、ディスクに空き容量があること、この名刺データベースへのインポートがほかで実行されていないことを確認してから、もう一度インポートしてください。</translation>
    </message>
    <message id="IDS_LOG_ERR_JOURNAL_UNREADABLE">
        <source>The file [%1], which records an import that did not finish, could not be read or removed. Check its access rights and the disk, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>完了しなかったインポートを示すファイル [%1] を読み取れないか、削除できませんでした。アクセス権とディスクを確認してから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_PACKAGE_ACCESS">
        <source>The access rights of the card database [%1] do not allow it to be used. Check that you may read and write it and everything in it, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>アクセス権の設定により、名刺データベース [%1] を使用できません。名刺データベースと中のすべてのファイルを読み書きできることを確認して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_PACKAGE_IMMUTABLE">
        <source>The card database [%1], its card store, "Images" or "Files" is marked as immutable. Remove the mark (chattr -i), then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベース [%1]、または中の名刺ストア、「Images」、「Files」に変更禁止の属性が設定されています。属性を解除 (chattr -i) して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_PACKAGE_IN_USE">
        <source>Another conversion is using the card database [%1]. Wait until it has ended, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベース [%1] は、ほかの変換で使用中です。終了するまで待ってから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_PACKAGE_NO_STORE">
        <source>The card database [%1] has no card store. Choose another card database, or put its store back from a backup.</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベース [%1] に名刺ストアがありません。別の名刺データベースを選択するか、バックアップから名刺ストアを戻してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_PACKAGE_READ_ONLY">
        <source>The card database [%1] can be read but not written. Check that you may write to it and everything in it, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベース [%1] は読み取れますが、書き込めません。名刺データベースと中のすべてのファイルに書き込めることを確認して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_PACKAGE_UNREADABLE">
        <source>[%1] is not a card database or cannot be read. Choose a folder whose name ends in ".vmdb", and check that you may read it.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] は名刺データベースではないか、読み取れません。名前の末尾が「.vmdb」のフォルダーを選択し、読み取れることを確認してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_SIZE">
        <source>The size of [%1] could not be measured: %2. Check that the program "du" is installed and that everything in this place can be read, then try again.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>[%1] のサイズを測定できませんでした: %2。「du」コマンドがインストールされていること、この場所のすべてのファイルを読み取れることを確認して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_STORE_FETCH">
        <source>The cards in [%1] could not be read: %2. Have the card database verified, and go back to a backup of it if it is damaged.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>[%1] の名刺を読み取れませんでした: %2。名刺データベースを検査し、破損している場合はバックアップに戻してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_STORE_MODEL">
        <source>The card store [%1] does not have the expected format: it lacks %2. Open the card database once with the current version of Velmora, then try again.</source>
        <extracomment>%1: path. %2: what is missing.</extracomment>
        <translation>名刺ストア [%1] の形式が想定と異なります (不足しているもの: %2)。最新のVelmoraで名刺データベースを一度開いてから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_STORE_OPEN">
        <source>The card store [%1] could not be opened: %2. Check that no other program uses it; if it is damaged, go back to a backup of the card database.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>名刺ストア [%1] を開けませんでした: %2。ほかのプログラムが使用していないことを確認してください。破損している場合は、名刺データベースをバックアップに戻してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_STORE_SAVE">
        <source>The card store [%1] could not be saved: %2. Check that no other program uses it and that its disk has free space, then try again.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>名刺ストア [%1] を保存できませんでした: %2。ほかのプログラムが使用していないこと、ディスクに空き容量があることを確認して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_TITLE_LINE">
        <source>Line %1 of [%2]: the title line has %4 titles, but %3 are needed, each of them once. Correct the title line and try again.</source>
        <extracomment>%1: line. %2: path of the data file. %3: titles needed. %4: titles found.</extracomment>
        <translation>[%2] の%1行目: タイトル行の項目数が%4個です。必要なのは%3個で、同じタイトルを重ねて書くことはできません。タイトル行を修正して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_TITLE_LINE_MISSING">
        <source>Line %1 of [%2]: the title line has %4 titles, but %3 are needed, and these are missing: %5. Write the missing titles exactly as shown here, separated by tabs, save the file as UTF-16 text and try again.</source>
        <extracomment>%1: line. %2: path of the data file. %3: titles needed. %4: titles found. %5: the missing titles.</extracomment>
        <translation>[%2] の%1行目: タイトル行が正しくありません (項目数 %4、必要な項目数 %3)。不足しているタイトル: %5。不足しているタイトルをこのとおりにタブ区切りで書き、UTF-16のテキストとして保存して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_TRANSFER_COPY">
        <source>No. %1 [%2]: [%3] could not be copied to [%4]. No. is the line of the data file on import and the number of the card on export. Check that the original can be read, that nothing exists yet at the destination and that the disk has free space, then try again.</source>
        <extracomment>%1: line of the data file or number of the card. %2: full name on the card. %3: source path. %4: target path.</extracomment>
        <translation>No. %1 [%2]: [%3] を [%4] にコピーできませんでした。No. は、インポートではデータファイルの行番号、エクスポートでは名刺の番号です。コピー元を読み取れること、コピー先に同じ名前のものがないこと、ディスクに空き容量があることを確認して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_ERR_TRANSFER_PLACE">
        <source>No. %1 [%2]: the failure occurred at [%3]. No. is the line of the data file on import and the number of the card on export. Check that this place exists, that you may read and write there and that the disk has free space, then try again.</source>
        <extracomment>%1: line of the data file or number of the card. %2: full name on the card. %3: path.</extracomment>
        <translation>No. %1 [%2]: 問題があった場所は [%3] です。No. は、インポートではデータファイルの行番号、エクスポートでは名刺の番号です。この場所が存在すること、読み書きできること、ディスクに空き容量があることを確認して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_LOG_INF_CANCEL_OPERATION">
        <source>The operation was cancelled by the user.</source>
        <translation>ユーザーの操作により処理を中止しました。</translation>
    </message>
    <message id="IDS_LOG_INF_CHANGES_KEPT">
        <source>Another program had changed the card database [%1] since the import. It was kept as [%2].</source>
        <extracomment>%1, %2: paths.</extracomment>
        <translation>インポートのあとで、ほかのプログラムが名刺データベース [%1] を変更していました。[%2] として残しました。</translation>
    </message>
    <message id="IDS_LOG_INF_END">
        <source>%1 ended.</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1を終了しました。</translation>
    </message>
    <message id="IDS_LOG_INF_END_WITH_INFO_EXPORT">
        <source>%1 ended.%2Cards in the database: %L3, exported: %L4.</source>
        <extracomment>%1: name of the operation. %2: IDS_LOG_INF_EXISTS_WRN_OR_ERR or a blank. %L3: cards found. %L4: cards written.</extracomment>
        <translation>%1を終了しました。%2データベースの件数: %L3件、エクスポートした件数: %L4件。</translation>
    </message>
    <message id="IDS_LOG_INF_END_WITH_INFO_IMPORT">
        <source>%1 ended.%2Cards in the data file: %L3, imported: %L4.</source>
        <extracomment>%1: name of the operation. %2: IDS_LOG_INF_EXISTS_WRN_OR_ERR or a blank. %L3: cards read. %L4: cards stored.</extracomment>
        <translation>%1を終了しました。%2データファイルの件数: %L3件、インポートした件数: %L4件。</translation>
    </message>
    <message id="IDS_LOG_INF_EXISTS_WRN_OR_ERR">
        <source> There are warnings or errors, see the lines above. </source>
        <extracomment>Inserted into the two end lines, so it begins and ends with a blank.</extracomment>
        <translation> 警告またはエラーがあります。上の行を確認してください。 </translation>
    </message>
    <message id="IDS_LOG_INF_JOURNAL_STAYS">
        <source>The file [%1], which records the finished import, could not be removed. The card database is complete; the next import checks this file and removes it.</source>
        <extracomment>%1: path.</extracomment>
        <translation>完了したインポートを示すファイル [%1] を削除できませんでした。名刺データベースに問題はありません。次のインポートのときに確認して削除します。</translation>
    </message>
    <message id="IDS_LOG_INF_START">
        <source>%1 started.%2</source>
        <extracomment>%1: name of the operation. %2: its paths, beginning with a blank, or nothing.</extracomment>
        <translation>%1を開始しました。%2</translation>
    </message>
    <message id="IDS_LOG_INF_UNFINISHED_KEPT">
        <source>An import into [%1] had not finished. The card database stays as it is; its backup is [%2].</source>
        <extracomment>%1, %2: paths.</extracomment>
        <translation>[%1] へのインポートが完了していませんでした。名刺データベースはこのまま使います。バックアップは [%2] にあります。</translation>
    </message>
    <message id="IDS_LOG_INF_VMDB_BACKUP_FILE_NAME">
        <source>Backup of the card database: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベースのバックアップ: [%1]</translation>
    </message>
    <message id="IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT">
        <source>Line %1 [%2]: an attachment was skipped, because its name begins with &quot;.&quot; or holds &quot;/&quot; or &quot;:&quot;. Rename the file and import the card again if it is needed.</source>
        <extracomment>%1: line of the data file. %2: full name on the card.</extracomment>
        <translation>%1行目 [%2]: 名前が「.」で始まるか「/」「:」を含む添付ファイルを取り込みませんでした。必要な場合は、ファイル名を変更してもう一度インポートしてください。</translation>
    </message>
    <message id="IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT_FOR_EXPORT">
        <source>Card %1 [%2]: an attachment was skipped, because its name begins with &quot;.&quot; or holds one of / : \ * ? &quot; &lt; &gt; |. Rename the file in Velmora and export again if it is needed.</source>
        <extracomment>%1: number of the card. %2: full name on the card.</extracomment>
        <translation>%1件目 [%2]: 名前が「.」で始まるか、/ : \ * ? &quot; &lt; &gt; | のいずれかを含む添付ファイルをエクスポートしませんでした。必要な場合は、Velmoraでファイル名を変更してもう一度エクスポートしてください。</translation>
    </message>
    <message id="IDS_LOG_WRN_ATTACH_NOT_REGULAR">
        <source>Line %1 [%2]: the attachment &quot;%3&quot; was skipped, because it is a link, a device or another special file. Put the file itself into the folder and import the card again if it is needed.</source>
        <extracomment>%1: line of the data file. %2: full name on the card. %3: name of the attachment.</extracomment>
        <translation>%1行目 [%2]: 添付ファイル「%3」は、リンクやデバイスなどの特殊なファイルのため、取り込みませんでした。必要な場合は、ファイルそのものをフォルダーに置いて、もう一度インポートしてください。</translation>
    </message>
    <message id="IDS_LOG_WRN_ATTACH_NOT_REGULAR_FOR_EXPORT">
        <source>Card %1 [%2]: the attachment &quot;%3&quot; was skipped, because it is a link, a device or another special file. Add the file itself to the card in Velmora and export again if it is needed.</source>
        <extracomment>%1: number of the card. %2: full name on the card. %3: name of the attachment.</extracomment>
        <translation>%1件目 [%2]: 添付ファイル「%3」は、リンクやデバイスなどの特殊なファイルのため、エクスポートしませんでした。必要な場合は、Velmoraで名刺にファイルそのものを添付して、もう一度エクスポートしてください。</translation>
    </message>
    <message id="IDS_LOG_WRN_CONVERT_FAIL">
        <source>No. %1 [%2]: the card images could not be converted (code %3), so the card is transferred without images. No. is the line of the data file on import and the number of the card on export. Check the image files of this card.</source>
        <extracomment>%1: line of the data file or number of the card. %2: full name on the card. %3: result code.</extracomment>
        <translation>No. %1 [%2]: 名刺画像を変換できなかったため、画像なしで処理しました (コード %3)。No. は、インポートではデータファイルの行番号、エクスポートでは名刺の番号です。この名刺の画像ファイルを確認してください。</translation>
    </message>
    <message id="IDS_LOG_WRN_FILE_NO_EXISTS">
        <source>The file or folder does not exist: [%1]. Check its name and put it in this place.</source>
        <extracomment>%1: path.</extracomment>
        <translation>ファイルまたはフォルダーが見つかりません: [%1]。名前を確認し、この場所に置いてください。</translation>
    </message>
    <message id="IDS_LOG_WRN_IMAGE_FILE_NO_EXISTS">
        <source>Card %1 [%2]: the file of the card images is missing in the card database (code %3), so the card is exported without images. Check the card in Velmora.</source>
        <extracomment>%1: number of the card. %2: full name on the card. %3: result code.</extracomment>
        <translation>%1件目 [%2]: 名刺データベースに名刺画像のファイルがないため、画像なしでエクスポートしました (コード %3)。Velmoraでこの名刺を確認してください。</translation>
    </message>
    <message id="IDS_LOG_WRN_ITEM_MAX_LEN">
        <source>Line %2 [%3]: the item &quot;%1&quot; is too long. At most 256 characters of an item are stored; the rest is left out. Shorten the item in the data file if the rest matters.</source>
        <extracomment>%1: column title. %2: line of the data file. %3: full name on the card.</extracomment>
        <translation>%2行目 [%3]: 項目「%1」が長すぎます。1つの項目に保存されるのは256文字までで、残りは保存されません。必要に応じてデータファイルの項目を短くしてください。</translation>
    </message>
    <message id="IDS_LOG_WRN_NAME_LEADS_OUT">
        <source>Line %1 [%2]: the name &quot;%3&quot; points outside the folder [%4], so it was not used. Put the file into that folder, write its name into the data file without &quot;/&quot; or &quot;..&quot; in front, and import the card again.</source>
        <extracomment>%1: line of the data file. %2: full name on the card. %3: name in the data file. %4: folder.</extracomment>
        <translation>%1行目 [%2]: 「%3」はフォルダー [%4] の外を指しているため、使用しませんでした。ファイルをこのフォルダーに置き、データファイルには先頭に「/」や「..」を付けずに名前を書いて、もう一度インポートしてください。</translation>
    </message>
    <message id="IDS_LOG_WRN_REPORT">
        <source>The report [%1] could not be written: %2. The cards are not affected. Check that you may write to its folder and that the disk has free space.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>レポート [%1] を書き込めませんでした: %2。名刺には影響ありません。このフォルダーに書き込めること、ディスクに空き容量があることを確認してください。</translation>
    </message>
    <message id="IDS_MSG_BACKUP_DELETE">
        <source>Delete this backup? This cannot be undone.

Backup: %1
Made: %2
Contents: %3
Card database: [%4]</source>
        <extracomment>Answered with Yes or No. %1: name. %2: date and time. %3: number of cards, or that it is not usable. %4: path.</extracomment>
        <translation>このバックアップを削除しますか? 削除すると元に戻せません。

バックアップ: %1
作成日時: %2
内容: %3
名刺データベース: [%4]</translation>
    </message>
    <message id="IDS_MSG_BACKUP_RESTORE">
        <source>Restore the card database from this backup? Quit Velmora first. The current card database is backed up before the restore, and the chosen backup is kept as well.

Backup: %1
Made: %2
Contents: %3
Card database: [%4]</source>
        <extracomment>Answered with Yes or No. %1: name. %2: date and time. %3: number of cards. %4: path.</extracomment>
        <translation>名刺データベースをこのバックアップの状態に戻しますか? 先にVelmoraを終了してください。現在の名刺データベースは復元の前にバックアップされ、選択したバックアップも残ります。

バックアップ: %1
作成日時: %2
内容: %3
名刺データベース: [%4]</translation>
    </message>
    <message id="IDS_MSG_DATA_COUNT">
        <source>Cards: %L1</source>
        <extracomment>%L1: number of cards. One of the two counts below follows directly.</extracomment>
        <translation>名刺の件数: %L1件</translation>
    </message>
    <message id="IDS_MSG_DB_BACKUP_RESTORE_IS_RUNNING">
        <source>%1 of the card database is running.</source>
        <extracomment>%1: Backup or Restore.</extracomment>
        <translation>名刺データベースの%1を実行しています。</translation>
    </message>
    <message id="IDS_MSG_DB_OPERATION_SUCCESS">
        <source>%1 of the card database has finished.</source>
        <extracomment>%1: Backup.</extracomment>
        <translation>名刺データベースの%1が完了しました。</translation>
    </message>
    <message id="IDS_MSG_DB_RESTORE_FINISH">
        <source>%1 of the card database has ended.</source>
        <extracomment>%1: Restore. Shown after a failed restore too.</extracomment>
        <translation>名刺データベースの%1が終了しました。</translation>
    </message>
    <message id="IDS_MSG_ERR_0101">
        <source>There is no log file yet. It is created when an import or export runs.</source>
        <translation>ログファイルがまだありません。ログファイルは、インポートまたはエクスポートを実行すると作成されます。</translation>
    </message>
    <message id="IDS_MSG_ERR_0102">
        <source>An internal error occurred, and the operation could not be completed. Try again. If the error occurs again, see the log for details.</source>
        <translation>内部エラーが発生したため、処理を完了できませんでした。もう一度実行してください。エラーが繰り返される場合は、ログで詳細を確認してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0103">
        <source>There is not enough free space on the destination disk. Free some space and try again.</source>
        <translation>保存先のディスクの空き容量が足りません。空き容量を増やしてから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0104">
        <source>Version %1 of Velmora, installed at [%2], is too old. Update Velmora to version 1.1.20 or later and try again.</source>
        <extracomment>%1: installed version. %2: path of the application.</extracomment>
        <translation>インストールされているVelmora [%2] のバージョン (%1) が古いため、実行できません。Velmoraをバージョン1.1.20以降に更新してから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0105">
        <source>[%1] is on a network volume, or its location cannot be determined. Copy it to a disk of this computer, or choose another place on this computer, and try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] はネットワーク上にあるか、場所を確認できません。このコンピューターのディスクにコピーするか、このコンピューターの別の場所を選択して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0106">
        <source>Quit Velmora before you begin, and do not use the card database until the operation has finished. Do you want to begin?</source>
        <extracomment>Question.</extracomment>
        <translation>始める前にVelmoraを終了し、処理が終わるまで名刺データベースを使用しないでください。実行しますか?</translation>
    </message>
    <message id="IDS_MSG_ERR_0108">
        <source>The log file could not be opened for viewing. Open it with a text editor: it is VelmoraConverter.log in the folder Library/Logs of your home folder.</source>
        <translation>ログファイルを表示できませんでした。ホームフォルダーのLibrary/LogsにあるVelmoraConverter.logを、テキストエディターで開いてください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0109">
        <source>The path of the card database [%1] is too long. Move the card database to a folder with a shorter path and try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベース [%1] のパスが長すぎます。パスの短いフォルダーに名刺データベースを移動してから、もう一度実行してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0110">
        <source>The path of the folder [%1] is empty or too long. Choose a folder with a shorter path and try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>フォルダーのパス [%1] が空か、長すぎます。パスの短いフォルダーを選択して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0111">
        <source>The report could not be opened for viewing. Open it with a web browser: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>レポートを表示できませんでした。ウェブブラウザーで開いてください: [%1]</translation>
    </message>
    <message id="IDS_MSG_ERR_0201">
        <source>The card database to export does not exist at [%1]. Choose an existing card database (.vmdb).</source>
        <extracomment>%1: path.</extracomment>
        <translation>エクスポートする名刺データベース [%1] が見つかりません。存在する名刺データベース (.vmdb) を選択してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0202">
        <source>The folder to export into does not exist at [%1]. Choose an existing folder.</source>
        <extracomment>%1: path.</extracomment>
        <translation>エクスポート先のフォルダー [%1] が見つかりません。存在するフォルダーを選択してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0203">
        <source>The card database [%1] is in use. Quit Velmora and other programs that use it, then export again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベース [%1] は使用中です。Velmoraなど、名刺データベースを使用しているプログラムを終了してから、もう一度エクスポートしてください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0204">
        <source>The export folder [%1] could not be created, or the old one could not be replaced. Check that you may write there and that the old folder is not a link, or choose another folder.</source>
        <extracomment>%1: path.</extracomment>
        <translation>エクスポート用のフォルダー [%1] を作成できないか、以前のフォルダーを置き換えられません。書き込めること、以前のフォルダーがリンクでないことを確認するか、別のフォルダーを選択してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0205">
        <source>There is already an exported folder at [%1]. It will be deleted with everything in it and created again. Do you want to continue?</source>
        <extracomment>Question. %1: path.</extracomment>
        <translation>以前にエクスポートしたフォルダー [%1] があります。続けると、そのフォルダーは中身ごと削除され、新しく作成されます。続けますか?</translation>
    </message>
    <message id="IDS_MSG_ERR_0206">
        <source>The export was stopped, because the destination disk is full. Free some space or choose a folder on another disk, then export again.</source>
        <translation>エクスポート先のディスクの空き容量が足りないため、エクスポートを中断しました。空き容量を増やすか、別のディスクのフォルダーを選択して、もう一度エクスポートしてください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0207">
        <source>The export was stopped, because an attachment could not be copied. The log holds the details. Check that the attachment can be read and that you may write to the export folder, then export again.</source>
        <translation>添付ファイルをコピーできなかったため、エクスポートを中断しました。添付ファイルを読み取れること、エクスポート先のフォルダーに書き込めることを確認して、もう一度エクスポートしてください。詳しくはログを確認してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0208">
        <source>The export failed. What was written so far may be incomplete. Check that the card database can be opened in Velmora and that you may write to the selected folder, then export again. The log holds the details.</source>
        <translation>エクスポートに失敗しました。書き出したデータは完全ではない可能性があります。Velmoraで名刺データベースを開けること、選択したフォルダーに書き込めることを確認して、もう一度エクスポートしてください。詳しくはログを確認してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0209">
        <source>The card database holds no cards, so there is nothing to export. Check that you chose the right card database.</source>
        <translation>名刺データベースに名刺がないため、エクスポートするデータがありません。選択した名刺データベースが正しいか確認してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0210">
        <source>Do you want to cancel the export? The folder written so far will be deleted.</source>
        <extracomment>Question.</extracomment>
        <translation>エクスポートを中止しますか? ここまでに書き出したフォルダーは削除されます。</translation>
    </message>
    <message id="IDS_MSG_ERR_0211">
        <source>Cards exported: %L1. The export has finished. Do you want to quit VelmoraConverter?</source>
        <extracomment>Question. %L1: number of cards.</extracomment>
        <translation>エクスポートが終了しました (%L1件)。VelmoraConverterを終了しますか?</translation>
    </message>
    <message id="IDS_MSG_ERR_0301">
        <source>The card database cannot be used, or its disk is full. Check that it is a valid card database (.vmdb), that it is neither locked nor read-only, and that its disk has free space, then try again.</source>
        <translation>名刺データベースを使用できないか、ディスクの空き容量が足りません。正しい名刺データベース (.vmdb) であること、ロックされたり読み取り専用になったりしていないこと、ディスクに空き容量があることを確認して、もう一度実行してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0302">
        <source>The card database to import into does not exist at [%1]. Choose an existing card database (.vmdb).</source>
        <extracomment>%1: path.</extracomment>
        <translation>インポート先の名刺データベース [%1] が見つかりません。存在する名刺データベース (.vmdb) を選択してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0304">
        <source>The card database [%1] is in use. Quit Velmora and other programs that use it, then import again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベース [%1] は使用中です。Velmoraなど、名刺データベースを使用しているプログラムを終了してから、もう一度インポートしてください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0306">
        <source>The data file is empty or holds no cards, so nothing was imported. Check the data file: it needs the title line and at least one line for a card. If a line of it is wrong, the log names that line.</source>
        <translation>データファイルが空か、名刺のデータが1件もないため、インポートしませんでした。データファイルには、タイトル行と1件以上のデータ行が必要です。誤りのある行がある場合は、ログにその行番号が記録されています。</translation>
    </message>
    <message id="IDS_MSG_ERR_0307">
        <source>Line %1 of the data file is wrong, so nothing was imported. The title line must hold the 21 titles, and every other line 21 items, separated by tabs. Correct the line and import again.</source>
        <extracomment>%1: line of the data file.</extracomment>
        <translation>データファイルの%1行目に誤りがあるため、インポートしませんでした。タイトル行には21個のタイトル、データ行には21個の項目が、タブ区切りで必要です。この行を修正して、もう一度インポートしてください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0308">
        <source>The interchange folder to import does not exist at [%1]. Choose an existing folder.</source>
        <extracomment>%1: path.</extracomment>
        <translation>インポートするデータフォルダー [%1] が見つかりません。存在するフォルダーを選択してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0309">
        <source>There is no data file at [%1]. Choose an interchange folder that holds this file.</source>
        <extracomment>%1: path of the data file.</extracomment>
        <translation>データファイル [%1] がありません。このファイルがあるデータフォルダーを選択してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0310">
        <source>The data file could not be read, so nothing was imported. Check that you may read it and that it is saved as Unicode text (UTF-16), then import again.</source>
        <translation>データファイルを読み取れないため、インポートしませんでした。ファイルを読み取れること、Unicodeテキスト (UTF-16) で保存されていることを確認して、もう一度インポートしてください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0311">
        <source>%1 of the card database failed. Check that its folder can be written to and that the disk has free space, then import again. If a restore failed, the card database may be incomplete or missing: put a copy of the backup in its place first.%2</source>
        <extracomment>%1: Backup or Restore. %2: the path of the backup on a line of its own, or nothing.</extracomment>
        <translation>名刺データベースの%1に失敗しました。名刺データベースのあるフォルダーに書き込めること、ディスクに空き容量があることを確認して、もう一度インポートしてください。復元に失敗した場合は、名刺データベースが不完全か、失われている可能性があります。先にバックアップのコピーを元の場所に置いてください。%2</translation>
    </message>
    <message id="IDS_MSG_ERR_0313">
        <source>The import failed, and nothing was imported. Check the interchange folder, and that the card database is not in use and can be written to, then import again. The log holds the details.</source>
        <translation>インポートに失敗したため、データは取り込まれていません。データフォルダーの内容と、名刺データベースが使用中でなく書き込めることを確認して、もう一度インポートしてください。詳しくはログを確認してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0314">
        <source>This folder was exported by VelmoraConverter and is not meant to be imported again, so nothing was imported. Choose an interchange folder that another program made for import.</source>
        <translation>このフォルダーはVelmoraConverterがエクスポートしたものです。エクスポートしたフォルダーを再びインポートすることはできません。インポート用に作成されたデータフォルダーを選択してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0315">
        <source>Do you want to cancel the import? The card database will be put back to its state before the import.</source>
        <extracomment>Question.</extracomment>
        <translation>インポートを中止しますか? 名刺データベースはインポート前の状態に戻ります。</translation>
    </message>
    <message id="IDS_MSG_ERR_0316">
        <source>The file &quot;Version.txt&quot; of the interchange folder is missing or names another version, so nothing was imported. Choose an interchange folder of version V1.0L10.</source>
        <translation>データフォルダーの「Version.txt」がないか、対応していないバージョンのため、インポートしませんでした。バージョンV1.0L10のデータフォルダーを選択してください。</translation>
    </message>
    <message id="IDS_MSG_ERR_0317">
        <source>Cards imported: %L1. The import has finished. Do you want to quit VelmoraConverter?</source>
        <extracomment>Question. %L1: number of cards.</extracomment>
        <translation>インポートが終了しました (%L1件)。VelmoraConverterを終了しますか?</translation>
    </message>
    <message id="IDS_MSG_EXPORT_COUNT">
        <source>, exported: %L1</source>
        <extracomment>%L1: number of cards done. Directly follows IDS_MSG_DATA_COUNT.</extracomment>
        <translation>、エクスポート済み: %L1件</translation>
    </message>
    <message id="IDS_MSG_EXPORT_PROGRESS">
        <source>Exporting: %1%</source>
        <extracomment>%1: percentage.</extracomment>
        <translation>エクスポート中: %1%</translation>
    </message>
    <message id="IDS_MSG_IMPORT_COUNT">
        <source>, imported: %L1</source>
        <extracomment>%L1: number of cards done. Directly follows IDS_MSG_DATA_COUNT.</extracomment>
        <translation>、インポート済み: %L1件</translation>
    </message>
    <message id="IDS_MSG_IMPORT_PROGRESS">
        <source>Importing: %1%</source>
        <extracomment>%1: percentage.</extracomment>
        <translation>インポート中: %1%</translation>
    </message>
    <message id="IDS_MSG_PROCESS_IS_FINISHED">
        <source>%1 has finished.</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1が終了しました。</translation>
    </message>
    <message id="IDS_MSG_PROCESS_IS_RUNNING">
        <source>%1 is running.</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1を実行しています。</translation>
    </message>
    <message id="IDS_MSG_REFERENCE_LOG_FILE">
        <source>There are warnings or errors. Open the log to see them.</source>
        <translation>警告またはエラーがあります。ログを確認してください。</translation>
    </message>
    <message id="IDS_MSG_UNFINISHED_CHANGED">
        <source>An import into the card database [%1] did not finish. Since then, another program has changed the card database: %3.
Backup from before the import: [%2]

Restore the backup now? Yes: the card database is put back to its state before that import, and the changed one is kept beside it under the next backup name. No: the card database stays as it is, and a copy of it is kept under the next backup name.</source>
        <extracomment>%1, %2: paths. %3: IDS_RECOVER_CHANGES or IDS_RECOVER_UNKNOWN. Answered with Yes or No.</extracomment>
        <translation>名刺データベース [%1] へのインポートが完了していません。その後、ほかのプログラムがこの名刺データベースを変更しています: %3
インポート前のバックアップ: [%2]

バックアップを復元しますか? 「はい」: 名刺データベースをインポート前の状態に戻し、変更された名刺データベースは次のバックアップ名で隣に残します。「いいえ」: 名刺データベースをこのまま残し、そのコピーを次のバックアップ名で残します。</translation>
    </message>
    <message id="IDS_MSG_UNFINISHED_IMPORT">
        <source>An import into the card database [%1] did not finish.
Backup from before it: [%2]

Restore the backup now? Yes: the card database is put back to its state before that import. No: the card database and the backup stay as they are.</source>
        <extracomment>%1, %2: paths. Answered with Yes or No.</extracomment>
        <translation>名刺データベース [%1] へのインポートが完了していません。
インポート前のバックアップ: [%2]

バックアップを復元しますか? 「はい」: 名刺データベースをインポート前の状態に戻します。「いいえ」: 名刺データベースもバックアップもこのまま残します。</translation>
    </message>
    <message id="IDS_MSG_WARNED_CARDS">
        <source>Cards with warnings or errors: %L1</source>
        <extracomment>%L1: number of cards.</extracomment>
        <translation>警告またはエラーのある名刺: %L1件</translation>
    </message>
    <message id="IDS_MSG_WARNED_COUNT">
        <source>, with warnings: %L1</source>
        <extracomment>Follows IDS_MSG_IMPORT_COUNT or IDS_MSG_EXPORT_COUNT. %L1: number of cards.</extracomment>
        <translation>、警告あり: %L1件</translation>
    </message>
    <message id="IDS_OPEN_DATA_FILE_PANEL_TITLE">
        <source>Choose a Folder</source>
        <translation>フォルダーの選択</translation>
    </message>
    <message id="IDS_OPEN_VMDB_FILE_PANEL_TITLE">
        <source>Choose a Card Database</source>
        <translation>名刺データベースの選択</translation>
    </message>
    <message id="IDS_RECOVER_CHANGES">
        <source>cards added: %L1, changed: %L2, removed: %L3; other files: %L4</source>
        <extracomment>Counts, inside IDS_MSG_UNFINISHED_CHANGED.</extracomment>
        <translation>追加された名刺: %L1件、変更: %L2件、削除: %L3件、その他のファイル: %L4個</translation>
    </message>
    <message id="IDS_RECOVER_UNKNOWN">
        <source>it cannot be compared with the backup</source>
        <extracomment>Inside IDS_MSG_UNFINISHED_CHANGED, in place of the counts.</extracomment>
        <translation>バックアップと比較できません</translation>
    </message>
    <message id="IDS_REPORT_ASKED">
        <source>Operation</source>
        <translation>処理の内容</translation>
    </message>
    <message id="IDS_REPORT_BACKUP">
        <source>Backup from before the operation</source>
        <extracomment>Label before a path.</extracomment>
        <translation>処理前のバックアップ</translation>
    </message>
    <message id="IDS_REPORT_CARDS_CONCERNED">
        <source>Cards to look at</source>
        <translation>確認が必要な名刺</translation>
    </message>
    <message id="IDS_REPORT_CARDS_EXPORTED">
        <source>Cards exported</source>
        <translation>エクスポートした名刺</translation>
    </message>
    <message id="IDS_REPORT_CARDS_HANDLED">
        <source>Cards processed before the end</source>
        <extracomment>Label for cards that were removed again or are not complete.</extracomment>
        <translation>終了までに処理した名刺</translation>
    </message>
    <message id="IDS_REPORT_CARDS_IMPORTED">
        <source>Cards imported</source>
        <translation>インポートした名刺</translation>
    </message>
    <message id="IDS_REPORT_COUNT">
        <source>%L1 of %L2</source>
        <extracomment>%L1: cards handled. %L2: cards in all.</extracomment>
        <translation>%L1件 / %L2件</translation>
    </message>
    <message id="IDS_REPORT_DATA">
        <source>The same report for programs:</source>
        <extracomment>Label before the name of a file.</extracomment>
        <translation>プログラム用の同じ内容:</translation>
    </message>
    <message id="IDS_REPORT_END_EXPORTED">
        <source>The cards are in the interchange folder. The card database was not changed.</source>
        <translation>名刺をデータフォルダーに書き出しました。名刺データベースは変更していません。</translation>
    </message>
    <message id="IDS_REPORT_END_EXPORT_INCOMPLETE">
        <source>The interchange folder is incomplete: it holds only the cards written so far. The card database was not changed.</source>
        <translation>途中まで書き出した分はデータフォルダーに残っていますが、完全ではありません。名刺データベースは変更していません。</translation>
    </message>
    <message id="IDS_REPORT_END_EXPORT_REMOVED">
        <source>Everything written so far was removed again. The card database was not changed.</source>
        <translation>書き出した分は削除しました。名刺データベースは変更していません。</translation>
    </message>
    <message id="IDS_REPORT_END_IMPORTED">
        <source>The cards are stored in the card database. The backup from before the import is kept until you delete it.</source>
        <translation>名刺を名刺データベースに保存しました。処理前のバックアップは、削除するまで残ります。</translation>
    </message>
    <message id="IDS_REPORT_END_NOT_RESTORED">
        <source>The card database could not be put back and may be incomplete. Put a copy of the backup in its place before you use it.</source>
        <translation>名刺データベースを元に戻せませんでした。不完全な可能性があります。使用する前に、バックアップのコピーを元の場所に置いてください。</translation>
    </message>
    <message id="IDS_REPORT_END_UNCHANGED">
        <source>The card database is as it was before.</source>
        <translation>名刺データベースは処理前の状態です。</translation>
    </message>
    <message id="IDS_REPORT_ERROR">
        <source>Error</source>
        <translation>エラー</translation>
    </message>
    <message id="IDS_REPORT_FATE">
        <source>Result</source>
        <extracomment>Title of a column.</extracomment>
        <translation>処理の結果</translation>
    </message>
    <message id="IDS_REPORT_FATE_ITEM_SHORTENED">
        <source>Transferred with the item cut off.</source>
        <translation>項目の一部を省いて処理しました。</translation>
    </message>
    <message id="IDS_REPORT_FATE_NOT_CERTAIN">
        <source>Not certain.</source>
        <translation>確認できません。</translation>
    </message>
    <message id="IDS_REPORT_FATE_NOT_EXPORTED">
        <source>Not exported.</source>
        <translation>エクスポートしていません。</translation>
    </message>
    <message id="IDS_REPORT_FATE_NOT_IMPORTED">
        <source>Not imported.</source>
        <translation>インポートしていません。</translation>
    </message>
    <message id="IDS_REPORT_FATE_STOPPED">
        <source>The operation stopped here.</source>
        <translation>ここで処理が止まりました。</translation>
    </message>
    <message id="IDS_REPORT_FATE_WITHOUT_ATTACHMENT">
        <source>Transferred without this attachment.</source>
        <translation>この添付ファイルを除いて処理しました。</translation>
    </message>
    <message id="IDS_REPORT_FATE_WITHOUT_ATTACHMENTS">
        <source>Transferred without attachments.</source>
        <translation>添付ファイルなしで処理しました。</translation>
    </message>
    <message id="IDS_REPORT_FATE_WITHOUT_IMAGE">
        <source>Transferred without this image.</source>
        <translation>この画像を除いて処理しました。</translation>
    </message>
    <message id="IDS_REPORT_FATE_WITHOUT_IMAGES">
        <source>Transferred without images.</source>
        <translation>画像なしで処理しました。</translation>
    </message>
    <message id="IDS_REPORT_FROM">
        <source>Interchange folder that was imported</source>
        <extracomment>Label before a path.</extracomment>
        <translation>インポート元のデータフォルダー</translation>
    </message>
    <message id="IDS_REPORT_HOURS">
        <source>%L1 h %L2 min</source>
        <extracomment>Time taken.</extracomment>
        <translation>%L1時間%L2分</translation>
    </message>
    <message id="IDS_REPORT_INTO">
        <source>Card database imported into</source>
        <extracomment>Label before a path.</extracomment>
        <translation>インポート先の名刺データベース</translation>
    </message>
    <message id="IDS_REPORT_KEPT">
        <source>VelmoraConverter %1 keeps the newest %L2 reports beside the log. Copy the reports that you want to keep longer.</source>
        <extracomment>%1: version. %L2: number of reports.</extracomment>
        <translation>VelmoraConverter %1は、新しいものから%L2件のレポートをログと同じ場所に残します。長く残したいレポートは、別の場所にコピーしてください。</translation>
    </message>
    <message id="IDS_REPORT_LEFT_OUT">
        <source>There are %L1 more warnings and errors. Only the log lists them.</source>
        <extracomment>%L1: number.</extracomment>
        <translation>このほかに%L1件の警告とエラーがあります。ログを確認してください。</translation>
    </message>
    <message id="IDS_REPORT_LINE">
        <source>Line</source>
        <extracomment>Title of a column with line numbers of the data file.</extracomment>
        <translation>行</translation>
    </message>
    <message id="IDS_REPORT_LOG">
        <source>Log</source>
        <extracomment>Label before a path.</extracomment>
        <translation>ログ</translation>
    </message>
    <message id="IDS_REPORT_MESSAGE_NUMBER">
        <source>(message %1)</source>
        <extracomment>%1: number.</extracomment>
        <translation>(メッセージ %1)</translation>
    </message>
    <message id="IDS_REPORT_MINUTES">
        <source>%L1 min %L2 s</source>
        <extracomment>Time taken.</extracomment>
        <translation>%L1分%L2秒</translation>
    </message>
    <message id="IDS_REPORT_NAME">
        <source>Name</source>
        <extracomment>Title of a column.</extracomment>
        <translation>氏名</translation>
    </message>
    <message id="IDS_REPORT_NOTHING">
        <source>No card had a warning or an error.</source>
        <translation>警告やエラーのあった名刺はありません。</translation>
    </message>
    <message id="IDS_REPORT_NO_NAME">
        <source>(no name)</source>
        <extracomment>Shown in place of the name of a card without one.</extracomment>
        <translation>(氏名なし)</translation>
    </message>
    <message id="IDS_REPORT_NUMBER">
        <source>Card</source>
        <extracomment>Title of a column with running numbers of cards.</extracomment>
        <translation>番号</translation>
    </message>
    <message id="IDS_REPORT_NUMBER_OF_CARDS">
        <source>%L1</source>
        <extracomment>%L1: number of cards.</extracomment>
        <translation>%L1件</translation>
    </message>
    <message id="IDS_REPORT_OTHERS">
        <source>Not about a single card</source>
        <translation>個々の名刺以外の警告とエラー</translation>
    </message>
    <message id="IDS_REPORT_OUT_OF">
        <source>Card database that was exported</source>
        <extracomment>Label before a path.</extracomment>
        <translation>エクスポート元の名刺データベース</translation>
    </message>
    <message id="IDS_REPORT_REASON">
        <source>Why it failed</source>
        <translation>失敗した理由</translation>
    </message>
    <message id="IDS_REPORT_SECONDS">
        <source>%1 s</source>
        <extracomment>Time taken.</extracomment>
        <translation>%1秒</translation>
    </message>
    <message id="IDS_REPORT_STARTED">
        <source>Started</source>
        <extracomment>Label before a date and time.</extracomment>
        <translation>開始日時</translation>
    </message>
    <message id="IDS_REPORT_TIME">
        <source>Time taken</source>
        <translation>所要時間</translation>
    </message>
    <message id="IDS_REPORT_TITLE_CANCELLED">
        <source>%1 cancelled</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1を中止しました</translation>
    </message>
    <message id="IDS_REPORT_TITLE_DONE">
        <source>%1 finished</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1が終了しました</translation>
    </message>
    <message id="IDS_REPORT_TITLE_FAILED">
        <source>%1 failed</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1に失敗しました</translation>
    </message>
    <message id="IDS_REPORT_TITLE_WARNINGS">
        <source>%1 finished, with warnings</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1が終了しました (警告あり)</translation>
    </message>
    <message id="IDS_REPORT_TO">
        <source>Interchange folder exported to</source>
        <extracomment>Label before a path.</extracomment>
        <translation>エクスポート先のデータフォルダー</translation>
    </message>
    <message id="IDS_REPORT_WARNING">
        <source>Warning</source>
        <translation>警告</translation>
    </message>
    <message id="IDS_REPORT_WRONG">
        <source>Problem</source>
        <extracomment>Title of a column.</extracomment>
        <translation>問題</translation>
    </message>
    <message id="IDS_TITLE_BACKUPS">
        <source>Backups</source>
        <extracomment>Title of a window.</extracomment>
        <translation>バックアップ</translation>
    </message>
    <message id="IDS_TITLE_CHECK">
        <source>Check of the Interchange Folder</source>
        <extracomment>Title of a window.</extracomment>
        <translation>データフォルダーのチェック</translation>
    </message>
    <message id="IDS_TITLE_WINDOW">
        <source>VelmoraConverter</source>
        <extracomment>Title of the window and of every message.</extracomment>
        <translation>VelmoraConverter</translation>
    </message>
    <message id="IDS_VERIFY_ATTACHMENTS_UNREADABLE">
        <source>Card &quot;%1&quot; (%2): its attachment folder [%3] cannot be read: %4. Check that it is a folder and that you may read it.</source>
        <extracomment>%1: full name on the card. %2: card ID. %3: folder. %4: reason.</extracomment>
        <translation>名刺「%1」(%2): 添付ファイルのフォルダー [%3] を読み取れません: %4。フォルダーであること、読み取れることを確認してください。</translation>
    </message>
    <message id="IDS_VERIFY_ATTACHMENT_UNREADABLE">
        <source>Card &quot;%1&quot; (%2): its attachment [%3] cannot be read. Check that you may read it, or put the file back from a backup of the card database.</source>
        <extracomment>%1: full name on the card. %2: card ID. %3: path.</extracomment>
        <translation>名刺「%1」(%2): 添付ファイル [%3] を読み取れません。読み取れることを確認するか、名刺データベースのバックアップからファイルを戻してください。</translation>
    </message>
    <message id="IDS_VERIFY_CARD_NAME_LEADS_OUT">
        <source>Card &quot;%1&quot; (%2): the name &quot;%3&quot; points outside the card database and is not used. Correct the card in Velmora.</source>
        <extracomment>%1: full name on the card. %2: card ID. %3: name.</extracomment>
        <translation>名刺「%1」(%2): 名前「%3」は名刺データベースの外を指しているため、使用されません。Velmoraで名刺を修正してください。</translation>
    </message>
    <message id="IDS_VERIFY_CARD_PDF_MISSING">
        <source>Card &quot;%1&quot; (%2): its image file [%3] is missing, so the card is exported without images. Put the file back from a backup of the card database.</source>
        <extracomment>%1: full name on the card. %2: card ID. %3: path.</extracomment>
        <translation>名刺「%1」(%2): 画像ファイル [%3] がないため、この名刺は画像なしでエクスポートされます。名刺データベースのバックアップからファイルを戻してください。</translation>
    </message>
    <message id="IDS_VERIFY_CARD_PDF_UNUSABLE">
        <source>Card &quot;%1&quot; (%2): its image file [%3] is damaged, protected or not a card PDF, so the card is exported without images. Put the file back from a backup of the card database.</source>
        <extracomment>%1: full name on the card. %2: card ID. %3: path.</extracomment>
        <translation>名刺「%1」(%2): 画像ファイル [%3] は、破損しているか、保護されているか、名刺のPDFではないため、この名刺は画像なしでエクスポートされます。名刺データベースのバックアップからファイルを戻してください。</translation>
    </message>
    <message id="IDS_VERIFY_FILE_UNNAMED">
        <source>No card refers to [%1], so it only takes up space. Once you are sure that you do not need it, move it out of the card database.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] はどの名刺からも参照されておらず、容量を使用しているだけです。不要であることを確認してから、名刺データベースの外に移動してください。</translation>
    </message>
    <message id="IDS_VERIFY_FOLDER_UNREADABLE">
        <source>The folder [%1] cannot be read: %2. Check that it is a folder and that you may read it.</source>
        <extracomment>%1: folder. %2: reason.</extracomment>
        <translation>フォルダー [%1] を読み取れません: %2。フォルダーであること、読み取れることを確認してください。</translation>
    </message>
    <message id="IDS_VERIFY_IN_USE">
        <source>The card database [%1] is in use by another program, so it cannot be verified reliably. Quit that program and verify again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>名刺データベース [%1] はほかのプログラムが使用中のため、正しく検査できません。そのプログラムを終了してから、もう一度検査してください。</translation>
    </message>
    <message id="IDS_VERIFY_NO_FOLDER">
        <source>There is no card database at [%1]. Check the path: a card database is a folder whose name ends in &quot;.vmdb&quot;.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] に名刺データベースがありません。パスを確認してください。名刺データベースは、名前の末尾が「.vmdb」のフォルダーです。</translation>
    </message>
    <message id="IDS_VERIFY_STORE_DAMAGED">
        <source>The card store [%1] is damaged: %2. Do not import into this card database, but go back to a backup of it.</source>
        <extracomment>%1: path of the store. %2: what is wrong.</extracomment>
        <translation>名刺ストア [%1] が破損しています: %2。この名刺データベースにはインポートせず、バックアップに戻してください。</translation>
    </message>
    <message id="IDS_VERIFY_STORE_KEYS">
        <source>The card store [%1] records %2 as the highest key of its cards, but there is a card with key %3, so no card can be added. Go back to a backup of the card database.</source>
        <extracomment>%1: path of the store. %2: highest key noted. %3: highest key found.</extracomment>
        <translation>名刺ストア [%1] に記録されている最後のキーは%2ですが、キー%3の名刺があるため、名刺を追加できません。名刺データベースをバックアップに戻してください。</translation>
    </message>
    <message id="IDS_VERIFY_STORE_MISSING">
        <source>The card store [%1] is missing, so the card database holds no cards. Put the file back from a backup of the card database.</source>
        <extracomment>%1: path of the store.</extracomment>
        <translation>名刺ストア [%1] がないため、この名刺データベースには名刺がありません。名刺データベースのバックアップからファイルを戻してください。</translation>
    </message>
    <message id="IDS_VERIFY_STORE_MODEL">
        <source>The card store [%1] does not have the expected format: it lacks %2. Open the card database once with the current version of Velmora, then verify again.</source>
        <extracomment>%1: path of the store. %2: missing tables or columns.</extracomment>
        <translation>名刺ストア [%1] の形式が想定と異なります (不足しているもの: %2)。最新のVelmoraで名刺データベースを一度開いてから、もう一度検査してください。</translation>
    </message>
    <message id="IDS_VERIFY_STORE_NOT_READ">
        <source>The card store [%1] could not be read: %2. Check that you may read it and that the folder for temporary files has room for a copy of it, then verify again.</source>
        <extracomment>%1: path of the store. %2: reason.</extracomment>
        <translation>名刺ストア [%1] を読み取れませんでした: %2。ファイルを読み取れること、一時フォルダーにコピーを置ける空き容量があることを確認して、もう一度検査してください。</translation>
    </message>
    <message id="IDS_VERIFY_STORE_NO_STORE">
        <source>[%1] is not a card store: %2. Put the file back from a backup of the card database.</source>
        <extracomment>%1: path of the store. %2: reason.</extracomment>
        <translation>[%1] は名刺ストアではありません: %2。名刺データベースのバックアップからファイルを戻してください。</translation>
    </message>
</context>
</TS>
