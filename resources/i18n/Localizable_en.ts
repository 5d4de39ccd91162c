<?xml version="1.0" encoding="utf-8"?>
<!-- SPDX-License-Identifier: GPL-3.0-or-later -->
<!DOCTYPE TS>
<TS version="2.1" language="en" sourcelanguage="en">
<context>
    <name></name>
    <message id="IDS_BACKUP_CARDS">
        <source>Cards: %L1</source>
        <extracomment>In the list of backups. %L1: count.</extracomment>
        <translation>Cards: %L1</translation>
    </message>
    <message id="IDS_BACKUP_COUNT">
        <source>Backups of the card database [%1]: %L2</source>
        <extracomment>%1: path. %L2: count.</extracomment>
        <translation>Backups of the card database [%1]: %L2</translation>
    </message>
    <message id="IDS_BACKUP_DAMAGE">
        <source>This backup cannot be restored. %1</source>
        <extracomment>Shown for the backup that is chosen in the list. %1: what is wrong, a sentence.</extracomment>
        <translation>This backup cannot be restored. %1</translation>
    </message>
    <message id="IDS_BACKUP_DAMAGED">
        <source>The backup [%1] cannot be restored, so nothing was changed. %2</source>
        <extracomment>%1: path. %2: what is wrong, a sentence.</extracomment>
        <translation>The backup [%1] cannot be restored, so nothing was changed. %2</translation>
    </message>
    <message id="IDS_BACKUP_DELETED">
        <source>The backup [%1] has been deleted.</source>
        <extracomment>%1: name.</extracomment>
        <translation>The backup [%1] has been deleted.</translation>
    </message>
    <message id="IDS_BACKUP_FOLDER_READ_ONLY">
        <source>The folder [%1] cannot be written to, so nothing was changed. Check its access rights, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The folder [%1] cannot be written to, so nothing was changed. Check its access rights, then try again.</translation>
    </message>
    <message id="IDS_BACKUP_IN_USE">
        <source>[%1] is in use by another program, so nothing was changed. Quit that program or wait until it has ended, then try again.</source>
        <extracomment>%1: path of a card database or of a backup.</extracomment>
        <translation>[%1] is in use by another program, so nothing was changed. Quit that program or wait until it has ended, then try again.</translation>
    </message>
    <message id="IDS_BACKUP_KEPT">
        <source>Backup of the card database as it was before the restore: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>Backup of the card database as it was before the restore: [%1]</translation>
    </message>
    <message id="IDS_BACKUP_LAST">
        <source>The backup [%1] was not deleted: the card database [%2] is damaged or missing, and no other backup of it is intact. Restore this backup, or copy it to another place first.</source>
        <extracomment>%1, %2: paths.</extracomment>
        <translation>The backup [%1] was not deleted: the card database [%2] is damaged or missing, and no other backup of it is intact. Restore this backup, or copy it to another place first.</translation>
    </message>
    <message id="IDS_BACKUP_LISTING">
        <source>Reading the backups…</source>
        <translation>Reading the backups…</translation>
    </message>
    <message id="IDS_BACKUP_NONE">
        <source>There are no backups of this card database. An import makes one before it changes anything.</source>
        <translation>There are no backups of this card database. An import makes one before it changes anything.</translation>
    </message>
    <message id="IDS_BACKUP_NOT_DELETED">
        <source>The backup [%1] could not be deleted. Check its access rights and those of everything in it, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The backup [%1] could not be deleted. Check its access rights and those of everything in it, then try again.</translation>
    </message>
    <message id="IDS_BACKUP_NOT_KEPT">
        <source>The card database [%1] could not be backed up before the restore, so it was left as it is. Check that everything in it can be read and that the disk has free space, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The card database [%1] could not be backed up before the restore, so it was left as it is. Check that everything in it can be read and that the disk has free space, then try again.</translation>
    </message>
    <message id="IDS_BACKUP_NOT_USABLE">
        <source>not usable</source>
        <extracomment>In the list of backups, in place of the number of cards.</extracomment>
        <translation>not usable</translation>
    </message>
    <message id="IDS_BACKUP_NO_SPACE">
        <source>There is not enough free space in [%1] to restore the backup, so nothing was changed. Make room, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>There is not enough free space in [%1] to restore the backup, so nothing was changed. Make room, then try again.</translation>
    </message>
    <message id="IDS_BACKUP_NO_SUCH">
        <source>There is no backup named [%1] beside the card database [%2].</source>
        <extracomment>%1: name. %2: path.</extracomment>
        <translation>There is no backup named [%1] beside the card database [%2].</translation>
    </message>
    <message id="IDS_BACKUP_PUT_BACK">
        <source>The backup [%1] could not be restored. The card database [%2] is as it was before. Check the access rights and the free space of its folder, then try again.</source>
        <extracomment>%1, %2: paths.</extracomment>
        <translation>The backup [%1] could not be restored. The card database [%2] is as it was before. Check the access rights and the free space of its folder, then try again.</translation>
    </message>
    <message id="IDS_BACKUP_READING">
        <source>The backup [%1] is being read.</source>
        <extracomment>%1: name.</extracomment>
        <translation>The backup [%1] is being read.</translation>
    </message>
    <message id="IDS_BACKUP_RESTORED">
        <source>The card database [%1] has been restored from the backup [%2]. The backup is kept.</source>
        <extracomment>%1: path. %2: name.</extracomment>
        <translation>The card database [%1] has been restored from the backup [%2]. The backup is kept.</translation>
    </message>
    <message id="IDS_BACKUP_RESTORE_FAILED">
        <source>The backup [%1] could not be restored, and the card database [%2] may be incomplete. The backup is intact. Check the access rights and the free space of the folder, then try again: you will be asked whether to restore it.</source>
        <extracomment>%1, %2: paths.</extracomment>
        <translation>The backup [%1] could not be restored, and the card database [%2] may be incomplete. The backup is intact. Check the access rights and the free space of the folder, then try again: you will be asked whether to restore it.</translation>
    </message>
    <message id="IDS_BACKUP_UNFINISHED">
        <source>The last import into the card database [%1] did not finish, so nothing was changed. First decide whether to restore its backup or to keep the card database as it is.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The last import into the card database [%1] did not finish, so nothing was changed. First decide whether to restore its backup or to keep the card database as it is.</translation>
    </message>
    <message id="IDS_BACKUP_UNREADABLE">
        <source>The backup [%1] cannot be read completely, so nothing was changed. This part of it is damaged, or you may not read it: [%2]</source>
        <extracomment>%1: path. %2: path inside it.</extracomment>
        <translation>The backup [%1] cannot be read completely, so nothing was changed. This part of it is damaged, or you may not read it: [%2]</translation>
    </message>
    <message id="IDS_BUTTON_BACKUPS">
        <source>Back&amp;ups…</source>
        <translation>Back&amp;ups…</translation>
    </message>
    <message id="IDS_BUTTON_CANCEL">
        <source>C&amp;ancel</source>
        <extracomment>Text of the start button while an operation runs.</extracomment>
        <translation>C&amp;ancel</translation>
    </message>
    <message id="IDS_BUTTON_CHECK">
        <source>Chec&amp;k</source>
        <translation>Chec&amp;k</translation>
    </message>
    <message id="IDS_BUTTON_CHECK_AGAIN">
        <source>Check A&amp;gain</source>
        <extracomment>In the window with the problems of an interchange folder.</extracomment>
        <translation>Check A&amp;gain</translation>
    </message>
    <message id="IDS_BUTTON_CHOOSE_DATABASE">
        <source>Choose Databa&amp;se…</source>
        <extracomment>Opens the panel that chooses a card database.</extracomment>
        <translation>Choose Databa&amp;se…</translation>
    </message>
    <message id="IDS_BUTTON_CHOOSE_EXPORT">
        <source>&amp;Export cards</source>
        <extracomment>Choice of the first screen.</extracomment>
        <translation>&amp;Export cards</translation>
    </message>
    <message id="IDS_BUTTON_CHOOSE_FOLDER">
        <source>&amp;Choose Folder…</source>
        <extracomment>Opens the panel that chooses a folder.</extracomment>
        <translation>&amp;Choose Folder…</translation>
    </message>
    <message id="IDS_BUTTON_CHOOSE_IMPORT">
        <source>&amp;Import cards</source>
        <extracomment>Choice of the first screen.</extracomment>
        <translation>&amp;Import cards</translation>
    </message>
    <message id="IDS_BUTTON_CLOSE">
        <source>&amp;Close</source>
        <translation>&amp;Close</translation>
    </message>
    <message id="IDS_BUTTON_CONTINUE">
        <source>&amp;Continue</source>
        <extracomment>Goes from the first screen to the second.</extracomment>
        <translation>&amp;Continue</translation>
    </message>
    <message id="IDS_BUTTON_COPY">
        <source>Copy</source>
        <extracomment>In the menu of a list of problems.</extracomment>
        <translation>Copy</translation>
    </message>
    <message id="IDS_BUTTON_COPY_ALL">
        <source>Copy &amp;All</source>
        <extracomment>Copies a list of problems.</extracomment>
        <translation>Copy &amp;All</translation>
    </message>
    <message id="IDS_BUTTON_DELETE_BACKUP">
        <source>&amp;Delete…</source>
        <translation>&amp;Delete…</translation>
    </message>
    <message id="IDS_BUTTON_EXPORT">
        <source>&amp;Export</source>
        <extracomment>Button that starts the operation.</extracomment>
        <translation>&amp;Export</translation>
    </message>
    <message id="IDS_BUTTON_FIND_NEXT">
        <source>Find &amp;Next</source>
        <extracomment>In the viewer of the log.</extracomment>
        <translation>Find &amp;Next</translation>
    </message>
    <message id="IDS_BUTTON_IMPORT">
        <source>&amp;Import</source>
        <extracomment>Button that starts the operation.</extracomment>
        <translation>&amp;Import</translation>
    </message>
    <message id="IDS_BUTTON_MSG_CANCEL">
        <source>Cancel</source>
        <translation>Cancel</translation>
    </message>
    <message id="IDS_BUTTON_MSG_NO">
        <source>No</source>
        <translation>No</translation>
    </message>
    <message id="IDS_BUTTON_MSG_OK">
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message id="IDS_BUTTON_MSG_YES">
        <source>Yes</source>
        <translation>Yes</translation>
    </message>
    <message id="IDS_BUTTON_OPEN_LOG">
        <source>Open &amp;Log</source>
        <translation>Open &amp;Log</translation>
    </message>
    <message id="IDS_BUTTON_OPEN_REPORT">
        <source>Open &amp;Report</source>
        <translation>Open &amp;Report</translation>
    </message>
    <message id="IDS_BUTTON_QUIT">
        <source>&amp;Quit</source>
        <translation>&amp;Quit</translation>
    </message>
    <message id="IDS_BUTTON_RESTORE_BACKUP">
        <source>&amp;Restore…</source>
        <translation>&amp;Restore…</translation>
    </message>
    <message id="IDS_BUTTON_RETURN">
        <source>&amp;Back</source>
        <extracomment>Goes back to the first screen.</extracomment>
        <translation>&amp;Back</translation>
    </message>
    <message id="IDS_BUTTON_SAVE_LIST">
        <source>&amp;Save…</source>
        <extracomment>Saves a list of problems.</extracomment>
        <translation>&amp;Save…</translation>
    </message>
    <message id="IDS_BUTTON_STOP_CHECK">
        <source>S&amp;top</source>
        <extracomment>While an interchange folder is checked.</extracomment>
        <translation>S&amp;top</translation>
    </message>
    <message id="IDS_CHECK_ATTACHMENT_FOLDER_MISSING">
        <source>Line %1 [%2]: the attachment folder [%3] does not exist, and an import would stop there. Check the name in the data file, or put the folder in this place.</source>
        <extracomment>%1: line of the data file. %2: full name on the card. %3: path.</extracomment>
        <translation>Line %1 [%2]: the attachment folder [%3] does not exist, and an import would stop there. Check the name in the data file, or put the folder in this place.</translation>
    </message>
    <message id="IDS_CHECK_CARDS_AND_SPACE">
        <source>Cards in the data file: %L1. Free space that an import needs: %2.</source>
        <extracomment>%L1: count. %2: size with its unit.</extracomment>
        <translation>Cards in the data file: %L1. Free space that an import needs: %2.</translation>
    </message>
    <message id="IDS_CHECK_DATA_FILE_EMPTY">
        <source>The data file [%1] holds no cards. It needs the title line and at least one line for a card.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The data file [%1] holds no cards. It needs the title line and at least one line for a card.</translation>
    </message>
    <message id="IDS_CHECK_DATA_FILE_ENCODING">
        <source>The data file [%1] is not UTF-16 text. Save it as Unicode text (UTF-16).</source>
        <extracomment>%1: path.</extracomment>
        <translation>The data file [%1] is not UTF-16 text. Save it as Unicode text (UTF-16).</translation>
    </message>
    <message id="IDS_CHECK_DATA_FILE_MISSING">
        <source>The data file [%1] is missing. Put it in this place under this name.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The data file [%1] is missing. Put it in this place under this name.</translation>
    </message>
    <message id="IDS_CHECK_DATA_FILE_UNREADABLE">
        <source>The data file [%1] could not be read (code %2). Check that you may read it.</source>
        <extracomment>%1: path. %2: result code.</extracomment>
        <translation>The data file [%1] could not be read (code %2). Check that you may read it.</translation>
    </message>
    <message id="IDS_CHECK_FILE_UNREADABLE">
        <source>Line %1 [%2]: [%3] cannot be read. Check that you may read it.</source>
        <extracomment>%1: line of the data file. %2: full name on the card. %3: path.</extracomment>
        <translation>Line %1 [%2]: [%3] cannot be read. Check that you may read it.</translation>
    </message>
    <message id="IDS_CHECK_FOLDER_MISSING">
        <source>The interchange folder [%1] does not exist. Choose an existing folder.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The interchange folder [%1] does not exist. Choose an existing folder.</translation>
    </message>
    <message id="IDS_CHECK_FOLDER_UNREADABLE">
        <source>The interchange folder [%1] cannot be read. Check that you may read it.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The interchange folder [%1] cannot be read. Check that you may read it.</translation>
    </message>
    <message id="IDS_CHECK_IMAGE_MISSING">
        <source>Line %1 [%2]: the image [%3] does not exist, so the card would be imported without it. Check the name in the data file, or put the image in this place.</source>
        <extracomment>%1: line of the data file. %2: full name on the card. %3: path.</extracomment>
        <translation>Line %1 [%2]: the image [%3] does not exist, so the card would be imported without it. Check the name in the data file, or put the image in this place.</translation>
    </message>
    <message id="IDS_CHECK_IMAGE_NO_JPEG">
        <source>Line %1 [%2]: [%3] is not a JPEG image, so the card would be imported without images. Save it as a JPEG file.</source>
        <extracomment>%1: line of the data file. %2: full name on the card. %3: path.</extracomment>
        <translation>Line %1 [%2]: [%3] is not a JPEG image, so the card would be imported without images. Save it as a JPEG file.</translation>
    </message>
    <message id="IDS_CHECK_LINES">
        <source>Line %L1 of %L2</source>
        <extracomment>%L1, %L2: numbers of lines.</extracomment>
        <translation>Line %L1 of %L2</translation>
    </message>
    <message id="IDS_CHECK_NO_PROBLEMS">
        <source>No problems were found in [%1].</source>
        <extracomment>%1: path.</extracomment>
        <translation>No problems were found in [%1].</translation>
    </message>
    <message id="IDS_CHECK_PROBLEMS">
        <source>Problems found in [%1]: %L2.</source>
        <extracomment>%1: path. %L2: count.</extracomment>
        <translation>Problems found in [%1]: %L2.</translation>
    </message>
    <message id="IDS_CHECK_RUNNING">
        <source>Checking the interchange folder [%1]…</source>
        <extracomment>%1: path.</extracomment>
        <translation>Checking the interchange folder [%1]…</translation>
    </message>
    <message id="IDS_CHECK_SIZE">
        <source>The size of [%1] could not be measured. Check that you may read everything in it.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The size of [%1] could not be measured. Check that you may read everything in it.</translation>
    </message>
    <message id="IDS_CHECK_STOPPED">
        <source>The check was stopped, so there may be further problems.</source>
        <translation>The check was stopped, so there may be further problems.</translation>
    </message>
    <message id="IDS_CHECK_VERSION_MISSING">
        <source>[%1] is missing or is not UTF-16 text, so the folder cannot be imported. Choose an interchange folder of version %2, or put the file of such a folder in this place.</source>
        <extracomment>%1: path. %2: version.</extracomment>
        <translation>[%1] is missing or is not UTF-16 text, so the folder cannot be imported. Choose an interchange folder of version %2, or put the file of such a folder in this place.</translation>
    </message>
    <message id="IDS_CHECK_VERSION_OTHER">
        <source>[%1] names a version other than %2, so the folder cannot be imported. Choose an interchange folder of that version.</source>
        <extracomment>%1: path. %2: version.</extracomment>
        <translation>[%1] names a version other than %2, so the folder cannot be imported. Choose an interchange folder of that version.</translation>
    </message>
    <message id="IDS_CHECK_VERSION_PRODUCT">
        <source>[%1] says that VelmoraConverter exported this folder, and such a folder cannot be imported again. Choose an interchange folder that another program made for import.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] says that VelmoraConverter exported this folder, and such a folder cannot be imported again. Choose an interchange folder that another program made for import.</translation>
    </message>
    <message id="IDS_CLI_BACKUP">
        <source>Backup of the card database from before the import: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>Backup of the card database from before the import: [%1]</translation>
    </message>
    <message id="IDS_CLI_CREATED">
        <source>An empty card database was created: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>An empty card database was created: [%1]</translation>
    </message>
    <message id="IDS_CLI_ERR_BACKUP_NAME">
        <source>--restore and --delete can be used only with "backups", one at a time, and each needs the name of a backup.</source>
        <translation>--restore and --delete can be used only with "backups", one at a time, and each needs the name of a backup.</translation>
    </message>
    <message id="IDS_CLI_ERR_NO_COMMAND">
        <source>A command is missing: import, export, check, verify, create, recover or backups.</source>
        <translation>A command is missing: import, export, check, verify, create, recover or backups.</translation>
    </message>
    <message id="IDS_CLI_ERR_OPERANDS">
        <source>Wrong paths for &quot;%1&quot;. Usage: velmora-convert %1 %2</source>
        <extracomment>%1: command. %2: names of its paths.</extracomment>
        <translation>Wrong paths for &quot;%1&quot;. Usage: velmora-convert %1 %2</translation>
    </message>
    <message id="IDS_CLI_ERR_OPTION_VALUE">
        <source>The options take no values.</source>
        <translation>The options take no values.</translation>
    </message>
    <message id="IDS_CLI_ERR_RECOVER_CHOICE">
        <source>--keep can be used only with "recover", and not together with --restore.</source>
        <translation>--keep can be used only with "recover", and not together with --restore.</translation>
    </message>
    <message id="IDS_CLI_ERR_UNKNOWN_COMMAND">
        <source>There is no command &quot;%1&quot;. The commands are import, export, check, verify, create, recover and backups.</source>
        <extracomment>%1: the unknown command.</extracomment>
        <translation>There is no command &quot;%1&quot;. The commands are import, export, check, verify, create, recover and backups.</translation>
    </message>
    <message id="IDS_CLI_ERR_UNKNOWN_OPTION">
        <source>There is no option &quot;%1&quot;.</source>
        <extracomment>%1: option.</extracomment>
        <translation>There is no option &quot;%1&quot;.</translation>
    </message>
    <message id="IDS_CLI_EXPORTED">
        <source>Cards exported: %L1 of %L2, into the folder [%3].</source>
        <extracomment>%L1: cards done. %L2: cards in all. %3: path.</extracomment>
        <translation>Cards exported: %L1 of %L2, into the folder [%3].</translation>
    </message>
    <message id="IDS_CLI_EXPORT_CANCELLED">
        <source>The export was cancelled. The folder [%1] was removed.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The export was cancelled. The folder [%1] was removed.</translation>
    </message>
    <message id="IDS_CLI_EXPORT_FAILED">
        <source>The export into the folder [%3] failed after %L1 of %L2 cards.</source>
        <extracomment>%L1: cards done. %L2: cards in all. %3: path.</extracomment>
        <translation>The export into the folder [%3] failed after %L1 of %L2 cards.</translation>
    </message>
    <message id="IDS_CLI_HELP_BACKUPS">
        <source>Lists the backups beside the card database PACKAGE, or restores or deletes one of them.</source>
        <translation>Lists the backups beside the card database PACKAGE, or restores or deletes one of them.</translation>
    </message>
    <message id="IDS_CLI_HELP_CHECK">
        <source>Lists every problem in the interchange folder FOLDER; changes nothing.</source>
        <translation>Lists every problem in the interchange folder FOLDER; changes nothing.</translation>
    </message>
    <message id="IDS_CLI_HELP_CREATE">
        <source>Creates the empty card database PACKAGE (.vmdb).</source>
        <translation>Creates the empty card database PACKAGE (.vmdb).</translation>
    </message>
    <message id="IDS_CLI_HELP_DELETE">
        <source>With backups: deletes the backup NAME.</source>
        <translation>With backups: deletes the backup NAME.</translation>
    </message>
    <message id="IDS_CLI_HELP_EXIT">
        <source>Exit status: 0 done; 1 failed; 2 wrong usage; 3 refused before the operation began; 4 done, with warnings or errors in the log; 130 cancelled. check and verify: 0 no problems, 4 problems found, 1 could not be read.</source>
        <translation>Exit status: 0 done; 1 failed; 2 wrong usage; 3 refused before the operation began; 4 done, with warnings or errors in the log; 130 cancelled. check and verify: 0 no problems, 4 problems found, 1 could not be read.</translation>
    </message>
    <message id="IDS_CLI_HELP_EXPORT">
        <source>Exports the card database PACKAGE into a new interchange folder inside the folder PARENT.</source>
        <translation>Exports the card database PACKAGE into a new interchange folder inside the folder PARENT.</translation>
    </message>
    <message id="IDS_CLI_HELP_HELP">
        <source>Shows this help.</source>
        <translation>Shows this help.</translation>
    </message>
    <message id="IDS_CLI_HELP_IMPORT">
        <source>Imports the interchange folder FOLDER into the card database PACKAGE.</source>
        <translation>Imports the interchange folder FOLDER into the card database PACKAGE.</translation>
    </message>
    <message id="IDS_CLI_HELP_JSON">
        <source>Writes one JSON object per line to standard output; the last line is the result.</source>
        <translation>Writes one JSON object per line to standard output; the last line is the result.</translation>
    </message>
    <message id="IDS_CLI_HELP_KEEP">
        <source>With recover: keeps the card database as it is, without a question.</source>
        <translation>With recover: keeps the card database as it is, without a question.</translation>
    </message>
    <message id="IDS_CLI_HELP_QUIET">
        <source>Shows errors and problems only, neither progress nor summary.</source>
        <translation>Shows errors and problems only, neither progress nor summary.</translation>
    </message>
    <message id="IDS_CLI_HELP_RECOVER">
        <source>After an import into the card database PACKAGE that did not finish: restores its backup, or keeps the card database as it is.</source>
        <translation>After an import into the card database PACKAGE that did not finish: restores its backup, or keeps the card database as it is.</translation>
    </message>
    <message id="IDS_CLI_HELP_RESTORE">
        <source>With backups: restores the card database from the backup NAME. The current card database is backed up first. With recover, without NAME: restores the backup of the unfinished import, without a question.</source>
        <translation>With backups: restores the card database from the backup NAME. The current card database is backed up first. With recover, without NAME: restores the backup of the unfinished import, without a question.</translation>
    </message>
    <message id="IDS_CLI_HELP_USAGE">
        <source>velmora-convert moves business cards between a card database and an interchange folder. Usage: velmora-convert COMMAND [OPTIONS]</source>
        <translation>velmora-convert moves business cards between a card database and an interchange folder. Usage: velmora-convert COMMAND [OPTIONS]</translation>
    </message>
    <message id="IDS_CLI_HELP_VERIFY">
        <source>Lists every problem in the card database PACKAGE; changes nothing.</source>
        <translation>Lists every problem in the card database PACKAGE; changes nothing.</translation>
    </message>
    <message id="IDS_CLI_HELP_VERSION">
        <source>Shows the version.</source>
        <translation>Shows the version.</translation>
    </message>
    <message id="IDS_CLI_HELP_YES">
        <source>Answers every question with Yes.</source>
        <translation>Answers every question with Yes.</translation>
    </message>
    <message id="IDS_CLI_IMPORTED">
        <source>Cards imported: %L1 of %L2, into the card database [%3].</source>
        <extracomment>%L1: cards done. %L2: cards in all. %3: path.</extracomment>
        <translation>Cards imported: %L1 of %L2, into the card database [%3].</translation>
    </message>
    <message id="IDS_CLI_IMPORT_CANCELLED">
        <source>The import was cancelled. The card database [%1] is as it was before.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The import was cancelled. The card database [%1] is as it was before.</translation>
    </message>
    <message id="IDS_CLI_IMPORT_FAILED">
        <source>The import into the card database [%3] failed after %L1 of %L2 cards.</source>
        <extracomment>%L1: cards done. %L2: cards in all. %3: path.</extracomment>
        <translation>The import into the card database [%3] failed after %L1 of %L2 cards.</translation>
    </message>
    <message id="IDS_CLI_LOG">
        <source>Log: [%1], warnings: %L2, errors: %L3</source>
        <extracomment>%1: path. %L2 and %L3: counts.</extracomment>
        <translation>Log: [%1], warnings: %L2, errors: %L3</translation>
    </message>
    <message id="IDS_CLI_NEEDS_DECISION">
        <source>%1 --yes does not answer this question. Decide with "velmora-convert recover --restore PACKAGE" or "velmora-convert recover --keep PACKAGE", then run the command again.</source>
        <extracomment>%1: question.</extracomment>
        <translation>%1 --yes does not answer this question. Decide with "velmora-convert recover --restore PACKAGE" or "velmora-convert recover --keep PACKAGE", then run the command again.</translation>
    </message>
    <message id="IDS_CLI_NEEDS_YES">
        <source>%1 Nobody can answer this question here, so the answer is taken to be No. Run the command again with --yes to answer Yes, or run it in a terminal.</source>
        <extracomment>%1: question.</extracomment>
        <translation>%1 Nobody can answer this question here, so the answer is taken to be No. Run the command again with --yes to answer Yes, or run it in a terminal.</translation>
    </message>
    <message id="IDS_CLI_NO_LOG">
        <source>No log could be written at [%1], so warnings are not counted. Check that you may write there.</source>
        <extracomment>%1: path.</extracomment>
        <translation>No log could be written at [%1], so warnings are not counted. Check that you may write there.</translation>
    </message>
    <message id="IDS_CLI_PROGRESS">
        <source>%1 (%L2 of %L3)</source>
        <extracomment>%1: percentage with its text. %L2: cards done. %L3: cards in all.</extracomment>
        <translation>%1 (%L2 of %L3)</translation>
    </message>
    <message id="IDS_CLI_PROGRESS_TIME">
        <source>%1 (%L2 of %L3), time left %4</source>
        <extracomment>%1: percentage with its text. %L2: cards done. %L3: cards in all. %4: time.</extracomment>
        <translation>%1 (%L2 of %L3), time left %4</translation>
    </message>
    <message id="IDS_CLI_PROMPT">
        <source>%1 [y/N]</source>
        <extracomment>%1: question. Answered with y or n in every language.</extracomment>
        <translation>%1 [y/N]</translation>
    </message>
    <message id="IDS_CLI_RECOVER_CHANGES">
        <source>Another program had changed it since the import; that state is kept as [%1].</source>
        <extracomment>%1: path. Follows IDS_CLI_RECOVER_RESTORED or IDS_CLI_RECOVER_KEPT.</extracomment>
        <translation>Another program had changed it since the import; that state is kept as [%1].</translation>
    </message>
    <message id="IDS_CLI_RECOVER_KEPT">
        <source>The card database [%1] and its backup stay as they are.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The card database [%1] and its backup stay as they are.</translation>
    </message>
    <message id="IDS_CLI_RECOVER_NOTHING">
        <source>No import into the card database [%1] was interrupted, so there is nothing to recover.</source>
        <extracomment>%1: path.</extracomment>
        <translation>No import into the card database [%1] was interrupted, so there is nothing to recover.</translation>
    </message>
    <message id="IDS_CLI_RECOVER_RESTORED">
        <source>The card database [%1] is as it was before the import that did not finish.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The card database [%1] is as it was before the import that did not finish.</translation>
    </message>
    <message id="IDS_CLI_REPORT">
        <source>Report: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>Report: [%1]</translation>
    </message>
    <message id="IDS_CLI_TRY_HELP">
        <source>&quot;velmora-convert --help&quot; shows all commands and options.</source>
        <translation>&quot;velmora-convert --help&quot; shows all commands and options.</translation>
    </message>
    <message id="IDS_CLI_VERIFIED">
        <source>Cards in the card database: %L1.</source>
        <extracomment>%L1: count.</extracomment>
        <translation>Cards in the card database: %L1.</translation>
    </message>
    <message id="IDS_CLI_VERIFY_PROGRESS">
        <source>Verifying: %1%</source>
        <extracomment>%1: percentage.</extracomment>
        <translation>Verifying: %1%</translation>
    </message>
    <message id="IDS_CREATE_EXISTS">
        <source>A file or folder already exists at [%1], so nothing was changed. Choose another name, or move the existing one away first.</source>
        <extracomment>%1: path.</extracomment>
        <translation>A file or folder already exists at [%1], so nothing was changed. Choose another name, or move the existing one away first.</translation>
    </message>
    <message id="IDS_CREATE_FAILED">
        <source>The card database [%1] could not be created: %2. The incomplete card database was removed. Check that you may write there and that the disk has free space, then try again.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>The card database [%1] could not be created: %2. The incomplete card database was removed. Check that you may write there and that the disk has free space, then try again.</translation>
    </message>
    <message id="IDS_CREATE_NO_PARENT">
        <source>The folder [%1], in which the card database is to be created, does not exist. Create the folder first, or check the path.</source>
        <extracomment>%1: folder.</extracomment>
        <translation>The folder [%1], in which the card database is to be created, does not exist. Create the folder first, or check the path.</translation>
    </message>
    <message id="IDS_CREATE_WRONG_NAME">
        <source>[%1] cannot be the name of a card database. Choose a name that ends in &quot;.vmdb&quot;.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] cannot be the name of a card database. Choose a name that ends in &quot;.vmdb&quot;.</translation>
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
        <translation>Shows the backups of this card database, to restore or to delete them.</translation>
    </message>
    <message id="IDS_LABEL_CHECK">
        <source>Lists every problem in the interchange folder and changes nothing.</source>
        <extracomment>Describes the Check button.</extracomment>
        <translation>Lists every problem in the interchange folder and changes nothing.</translation>
    </message>
    <message id="IDS_LABEL_CHOICE">
        <source>What would you like to do?</source>
        <extracomment>Title of the first screen.</extracomment>
        <translation>What would you like to do?</translation>
    </message>
    <message id="IDS_LABEL_CHOICE_EXPORT">
        <source>Writes every card of a card database into a folder, as a data file with images and attachments.</source>
        <translation>Writes every card of a card database into a folder, as a data file with images and attachments.</translation>
    </message>
    <message id="IDS_LABEL_CHOICE_IMPORT">
        <source>Adds the cards of an interchange folder to a card database. The card database is backed up first.</source>
        <translation>Adds the cards of an interchange folder to a card database. The card database is backed up first.</translation>
    </message>
    <message id="IDS_LABEL_CLOSE_LATER">
        <source>VelmoraConverter is still working on the card database. Cancel first, or wait until it has finished.</source>
        <extracomment>Says why the window does not close.</extracomment>
        <translation>VelmoraConverter is still working on the card database. Cancel first, or wait until it has finished.</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_CARDS">
        <source>Cards</source>
        <extracomment>Heading of a column: number of cards.</extracomment>
        <translation>Cards</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_FILE">
        <source>File</source>
        <extracomment>Heading of a column: files or folders.</extracomment>
        <translation>File</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_LINE">
        <source>Line</source>
        <extracomment>Heading of a column: lines of the data file.</extracomment>
        <translation>Line</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_MADE">
        <source>Made</source>
        <extracomment>Heading of a column: when backups were made.</extracomment>
        <translation>Made</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_NAME">
        <source>Name</source>
        <extracomment>Heading of a column: names of backups.</extracomment>
        <translation>Name</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_PROBLEM">
        <source>Problem</source>
        <extracomment>Heading of a column.</extracomment>
        <translation>Problem</translation>
    </message>
    <message id="IDS_LABEL_COLUMN_SIZE">
        <source>Size</source>
        <extracomment>Heading of a column.</extracomment>
        <translation>Size</translation>
    </message>
    <message id="IDS_LABEL_CURRENT_CARD">
        <source>Card: %1</source>
        <extracomment>%1: full name on the card.</extracomment>
        <translation>Card: %1</translation>
    </message>
    <message id="IDS_LABEL_EXPORT_DATA_PATH">
        <source>F&amp;older to export into:</source>
        <translation>F&amp;older to export into:</translation>
    </message>
    <message id="IDS_LABEL_EXPORT_VMDB_PATH">
        <source>Card &amp;database to export:</source>
        <translation>Card &amp;database to export:</translation>
    </message>
    <message id="IDS_LABEL_FIND">
        <source>&amp;Find:</source>
        <extracomment>In the viewer of the log.</extracomment>
        <translation>&amp;Find:</translation>
    </message>
    <message id="IDS_LABEL_IMPORT_DATA_PATH">
        <source>Interchange f&amp;older to import:</source>
        <translation>Interchange f&amp;older to import:</translation>
    </message>
    <message id="IDS_LABEL_IMPORT_VMDB_PATH">
        <source>Card &amp;database to import into:</source>
        <translation>Card &amp;database to import into:</translation>
    </message>
    <message id="IDS_LABEL_KEEP_AWAKE">
        <source>Business cards are being converted.</source>
        <extracomment>Reason given to the desktop for keeping the computer awake.</extracomment>
        <translation>Business cards are being converted.</translation>
    </message>
    <message id="IDS_LABEL_LAST_PATH">
        <source>Last time: %1 (press ↓)</source>
        <extracomment>Shown in the empty field. %1: path. Down takes it over.</extracomment>
        <translation>Last time: %1 (press ↓)</translation>
    </message>
    <message id="IDS_LABEL_LOG_TAIL">
        <source>Only the end of this long log is shown. All of it is in [%1].</source>
        <extracomment>Shown above the log in its viewer. %1: path.</extracomment>
        <translation>Only the end of this long log is shown. All of it is in [%1].</translation>
    </message>
    <message id="IDS_LABEL_MENU">
        <source>&amp;File</source>
        <extracomment>The menu that holds Quit.</extracomment>
        <translation>&amp;File</translation>
    </message>
    <message id="IDS_LABEL_MINUTES_LEFT">
        <source>About %L1 min left</source>
        <extracomment>%L1: minutes, 1 and more.</extracomment>
        <translation>About %L1 min left</translation>
    </message>
    <message id="IDS_LABEL_NOT_FOUND">
        <source>“%1” was not found.</source>
        <extracomment>In the viewer of the log. %1: the text searched for.</extracomment>
        <translation>“%1” was not found.</translation>
    </message>
    <message id="IDS_LABEL_NO_PROBLEMS">
        <source>No problems were found.</source>
        <extracomment>Result of a check.</extracomment>
        <translation>No problems were found.</translation>
    </message>
    <message id="IDS_LABEL_NO_SINGLE_COPY">
        <source>VelmoraConverter was not started: another copy seems to be running but does not answer, or its runtime folder cannot be used. Quit the other copy, or log out and in again, then start it once more.</source>
        <extracomment>Written to the terminal.</extracomment>
        <translation>VelmoraConverter was not started: another copy seems to be running but does not answer, or its runtime folder cannot be used. Quit the other copy, or log out and in again, then start it once more.</translation>
    </message>
    <message id="IDS_LABEL_OPEN_REPORT">
        <source>Open the report about this run. Cards with warnings or errors: %L1</source>
        <extracomment>%L1: number of cards.</extracomment>
        <translation>Open the report about this run. Cards with warnings or errors: %L1</translation>
    </message>
    <message id="IDS_LABEL_PATH_IS_FILE">
        <source>This is a file. Choose a folder.</source>
        <extracomment>Below a path field.</extracomment>
        <translation>This is a file. Choose a folder.</translation>
    </message>
    <message id="IDS_LABEL_PATH_NOT_FOUND">
        <source>There is nothing at this path. Check it, or choose with the button.</source>
        <extracomment>Below a path field.</extracomment>
        <translation>There is nothing at this path. Check it, or choose with the button.</translation>
    </message>
    <message id="IDS_LABEL_PATH_NO_DATABASE">
        <source>This folder is not a card database. Choose a folder whose name ends in ".vmdb".</source>
        <extracomment>Below a path field.</extracomment>
        <translation>This folder is not a card database. Choose a folder whose name ends in ".vmdb".</translation>
    </message>
    <message id="IDS_LABEL_PATH_NO_DATA_FILE">
        <source>This folder does not contain the file [%1]. Choose the folder that contains it.</source>
        <extracomment>Below a path field. %1: name of the data file.</extracomment>
        <translation>This folder does not contain the file [%1]. Choose the folder that contains it.</translation>
    </message>
    <message id="IDS_LABEL_PROGRESS">
        <source>Progress</source>
        <extracomment>Name of the progress bar for a screen reader.</extracomment>
        <translation>Progress</translation>
    </message>
    <message id="IDS_LABEL_SECONDS_LEFT">
        <source>Less than a minute left</source>
        <translation>Less than a minute left</translation>
    </message>
    <message id="IDS_LABEL_SELECTED_PROBLEM">
        <source>Selected problem</source>
        <extracomment>Name of the field with the whole text of a problem, for a screen reader.</extracomment>
        <translation>Selected problem</translation>
    </message>
    <message id="IDS_LBL_BACKUP">
        <source>Backup</source>
        <extracomment>Name of the operation, also the first argument of other texts.</extracomment>
        <translation>Backup</translation>
    </message>
    <message id="IDS_LBL_DELETE_BACKUP">
        <source>Deletion of a backup</source>
        <extracomment>Name of the operation, also the first argument of other texts.</extracomment>
        <translation>Deletion of a backup</translation>
    </message>
    <message id="IDS_LBL_EXPORT">
        <source>Export</source>
        <extracomment>Name of the operation, also the first argument of other texts.</extracomment>
        <translation>Export</translation>
    </message>
    <message id="IDS_LBL_IMPORT">
        <source>Import</source>
        <extracomment>Name of the operation, also the first argument of other texts.</extracomment>
        <translation>Import</translation>
    </message>
    <message id="IDS_LBL_RESTORE">
        <source>Restore</source>
        <extracomment>Name of the operation, also the first argument of other texts.</extracomment>
        <translation>Restore</translation>
    </message>
    <message id="IDS_LIST_COPIED">
        <source>Problems copied: %L1</source>
        <extracomment>%L1: count.</extracomment>
        <translation>Problems copied: %L1</translation>
    </message>
    <message id="IDS_LIST_NAME">
        <source>Problems of %1.tsv</source>
        <extracomment>Proposed name of a file. %1: name of a folder.</extracomment>
        <translation>Problems of %1.tsv</translation>
    </message>
    <message id="IDS_LIST_NOT_SAVED">
        <source>The list could not be saved as [%1] (%2). Check that you may write there and that the disk has free space, then try again.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>The list could not be saved as [%1] (%2). Check that you may write there and that the disk has free space, then try again.</translation>
    </message>
    <message id="IDS_LIST_SAVED">
        <source>The list was saved: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>The list was saved: [%1]</translation>
    </message>
    <message id="IDS_LIST_TITLE">
        <source>Save the List of Problems</source>
        <extracomment>Title of a panel.</extracomment>
        <translation>Save the List of Problems</translation>
    </message>
    <message id="IDS_LIST_TYPE">
        <source>Tab-separated text (*.tsv)</source>
        <extracomment>Kind of a file.</extracomment>
        <translation>Tab-separated text (*.tsv)</translation>
    </message>
    <message id="IDS_LOG_ERR_ATTACHMENT_COPY_FAILURE">
        <source>An attachment could not be copied. Check that the attachment can be read and that the destination can be written to.</source>
        <translation>An attachment could not be copied. Check that the attachment can be read and that the destination can be written to.</translation>
    </message>
    <message id="IDS_LOG_ERR_COPY_DIFFERS">
        <source>The copy of the card database [%1] is not the same as the original at [%2]. Another program is changing the card database, or the disk is faulty: quit other programs that use it, check the disk, then try again.</source>
        <extracomment>%1: path of the original. %2: path below it, or nothing.</extracomment>
        <translation>The copy of the card database [%1] is not the same as the original at [%2]. Another program is changing the card database, or the disk is faulty: quit other programs that use it, check the disk, then try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_DATA_FILE_TOO_LARGE">
        <source>The data file [%1] has %L2 bytes, which is too large to be read: the limit is %L3 bytes. Divide the data file and import the parts one after the other.</source>
        <extracomment>%1: path of the data file. %L2: its size. %L3: largest size.</extracomment>
        <translation>The data file [%1] has %L2 bytes, which is too large to be read: the limit is %L3 bytes. Divide the data file and import the parts one after the other.</translation>
    </message>
    <message id="IDS_LOG_ERR_DATA_FILE_WRITE_FAILURE">
        <source>The data file could not be written. Check that the export folder can be written to and that the disk has free space.</source>
        <translation>The data file could not be written. Check that the export folder can be written to and that the disk has free space.</translation>
    </message>
    <message id="IDS_LOG_ERR_DATA_LINE">
        <source>Line %1 of [%2]: the line has %4 items, but %3 are needed. Check the line for missing or surplus tabs and for line breaks inside an item, then try again.</source>
        <extracomment>%1: line. %2: path of the data file. %3: items needed. %4: items found.</extracomment>
        <translation>Line %1 of [%2]: the line has %4 items, but %3 are needed. Check the line for missing or surplus tabs and for line breaks inside an item, then try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_DISK_FLUSH">
        <source>What was written to [%1] did not reach the disk. Check the disk and its free space, then try again.</source>
        <extracomment>%1: path of the card database.</extracomment>
        <translation>What was written to [%1] did not reach the disk. Check the disk and its free space, then try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_IMAGE_FILE_COPY_FAILURE">
        <source>A card image could not be written. Check that the image folder of the export can be written to and that the disk has free space.</source>
        <translation>A card image could not be written. Check that the image folder of the export can be written to and that the disk has free space.</translation>
    </message>
    <message id="IDS_LOG_ERR_JOURNAL">
        <source>The file [%1], which records that an import is running, could not be written. Check that its folder can be written to, that the disk has free space and that no other import into this card database is running, then import again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The file [%1], which records that an import is running, could not be written. Check that its folder can be written to, that the disk has free space and that no other import into this card database is running, then import again.</translation>
    </message>
    <message id="IDS_LOG_ERR_JOURNAL_UNREADABLE">
        <source>The file [%1], which records an import that did not finish, could not be read or removed. Check its access rights and the disk, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The file [%1], which records an import that did not finish, could not be read or removed. Check its access rights and the disk, then try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_PACKAGE_ACCESS">
        <source>The access rights of the card database [%1] do not allow it to be used. Check that you may read and write it and everything in it, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The access rights of the card database [%1] do not allow it to be used. Check that you may read and write it and everything in it, then try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_PACKAGE_IMMUTABLE">
        <source>The card database [%1], its card store, "Images" or "Files" is marked as immutable. Remove the mark (chattr -i), then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The card database [%1], its card store, "Images" or "Files" is marked as immutable. Remove the mark (chattr -i), then try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_PACKAGE_IN_USE">
        <source>Another conversion is using the card database [%1]. Wait until it has ended, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>Another conversion is using the card database [%1]. Wait until it has ended, then try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_PACKAGE_NO_STORE">
        <source>The card database [%1] has no card store. Choose another card database, or put its store back from a backup.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The card database [%1] has no card store. Choose another card database, or put its store back from a backup.</translation>
    </message>
    <message id="IDS_LOG_ERR_PACKAGE_READ_ONLY">
        <source>The card database [%1] can be read but not written. Check that you may write to it and everything in it, then try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The card database [%1] can be read but not written. Check that you may write to it and everything in it, then try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_PACKAGE_UNREADABLE">
        <source>[%1] is not a card database or cannot be read. Choose a folder whose name ends in ".vmdb", and check that you may read it.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] is not a card database or cannot be read. Choose a folder whose name ends in ".vmdb", and check that you may read it.</translation>
    </message>
    <message id="IDS_LOG_ERR_SIZE">
        <source>The size of [%1] could not be measured: %2. Check that the program "du" is installed and that everything in this place can be read, then try again.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>The size of [%1] could not be measured: %2. Check that the program "du" is installed and that everything in this place can be read, then try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_STORE_FETCH">
        <source>The cards in [%1] could not be read: %2. Have the card database verified, and go back to a backup of it if it is damaged.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>The cards in [%1] could not be read: %2. Have the card database verified, and go back to a backup of it if it is damaged.</translation>
    </message>
    <message id="IDS_LOG_ERR_STORE_MODEL">
        <source>The card store [%1] does not have the expected format: it lacks %2. Open the card database once with the current version of Velmora, then try again.</source>
        <extracomment>%1: path. %2: what is missing.</extracomment>
        <translation>The card store [%1] does not have the expected format: it lacks %2. Open the card database once with the current version of Velmora, then try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_STORE_OPEN">
        <source>The card store [%1] could not be opened: %2. Check that no other program uses it; if it is damaged, go back to a backup of the card database.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>The card store [%1] could not be opened: %2. Check that no other program uses it; if it is damaged, go back to a backup of the card database.</translation>
    </message>
    <message id="IDS_LOG_ERR_STORE_SAVE">
        <source>The card store [%1] could not be saved: %2. Check that no other program uses it and that its disk has free space, then try again.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>The card store [%1] could not be saved: %2. Check that no other program uses it and that its disk has free space, then try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_TITLE_LINE">
        <source>Line %1 of [%2]: the title line has %4 titles, but %3 are needed, each of them once. Correct the title line and try again.</source>
        <extracomment>%1: line. %2: path of the data file. %3: titles needed. %4: titles found.</extracomment>
        <translation>Line %1 of [%2]: the title line has %4 titles, but %3 are needed, each of them once. Correct the title line and try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_TITLE_LINE_MISSING">
        <source>Line %1 of [%2]: the title line has %4 titles, but %3 are needed, and these are missing: %5. Write the missing titles exactly as shown here, separated by tabs, save the file as UTF-16 text and try again.</source>
        <extracomment>%1: line. %2: path of the data file. %3: titles needed. %4: titles found. %5: the missing titles.</extracomment>
        <translation>Line %1 of [%2]: the title line has %4 titles, but %3 are needed, and these are missing: %5. Write the missing titles exactly as shown here, separated by tabs, save the file as UTF-16 text and try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_TRANSFER_COPY">
        <source>No. %1 [%2]: [%3] could not be copied to [%4]. No. is the line of the data file on import and the number of the card on export. Check that the original can be read, that nothing exists yet at the destination and that the disk has free space, then try again.</source>
        <extracomment>%1: line of the data file or number of the card. %2: full name on the card. %3: source path. %4: target path.</extracomment>
        <translation>No. %1 [%2]: [%3] could not be copied to [%4]. No. is the line of the data file on import and the number of the card on export. Check that the original can be read, that nothing exists yet at the destination and that the disk has free space, then try again.</translation>
    </message>
    <message id="IDS_LOG_ERR_TRANSFER_PLACE">
        <source>No. %1 [%2]: the failure occurred at [%3]. No. is the line of the data file on import and the number of the card on export. Check that this place exists, that you may read and write there and that the disk has free space, then try again.</source>
        <extracomment>%1: line of the data file or number of the card. %2: full name on the card. %3: path.</extracomment>
        <translation>No. %1 [%2]: the failure occurred at [%3]. No. is the line of the data file on import and the number of the card on export. Check that this place exists, that you may read and write there and that the disk has free space, then try again.</translation>
    </message>
    <message id="IDS_LOG_INF_CANCEL_OPERATION">
        <source>The operation was cancelled by the user.</source>
        <translation>The operation was cancelled by the user.</translation>
    </message>
    <message id="IDS_LOG_INF_CHANGES_KEPT">
        <source>Another program had changed the card database [%1] since the import. It was kept as [%2].</source>
        <extracomment>%1, %2: paths.</extracomment>
        <translation>Another program had changed the card database [%1] since the import. It was kept as [%2].</translation>
    </message>
    <message id="IDS_LOG_INF_END">
        <source>%1 ended.</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1 ended.</translation>
    </message>
    <message id="IDS_LOG_INF_END_WITH_INFO_EXPORT">
        <source>%1 ended.%2Cards in the database: %L3, exported: %L4.</source>
        <extracomment>%1: name of the operation. %2: IDS_LOG_INF_EXISTS_WRN_OR_ERR or a blank. %L3: cards found. %L4: cards written.</extracomment>
        <translation>%1 ended.%2Cards in the database: %L3, exported: %L4.</translation>
    </message>
    <message id="IDS_LOG_INF_END_WITH_INFO_IMPORT">
        <source>%1 ended.%2Cards in the data file: %L3, imported: %L4.</source>
        <extracomment>%1: name of the operation. %2: IDS_LOG_INF_EXISTS_WRN_OR_ERR or a blank. %L3: cards read. %L4: cards stored.</extracomment>
        <translation>%1 ended.%2Cards in the data file: %L3, imported: %L4.</translation>
    </message>
    <message id="IDS_LOG_INF_EXISTS_WRN_OR_ERR">
        <source> There are warnings or errors, see the lines above. </source>
        <extracomment>Inserted into the two end lines, so it begins and ends with a blank.</extracomment>
        <translation> There are warnings or errors, see the lines above. </translation>
    </message>
    <message id="IDS_LOG_INF_JOURNAL_STAYS">
        <source>The file [%1], which records the finished import, could not be removed. The card database is complete; the next import checks this file and removes it.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The file [%1], which records the finished import, could not be removed. The card database is complete; the next import checks this file and removes it.</translation>
    </message>
    <message id="IDS_LOG_INF_START">
        <source>%1 started.%2</source>
        <extracomment>%1: name of the operation. %2: its paths, beginning with a blank, or nothing.</extracomment>
        <translation>%1 started.%2</translation>
    </message>
    <message id="IDS_LOG_INF_UNFINISHED_KEPT">
        <source>An import into [%1] had not finished. The card database stays as it is; its backup is [%2].</source>
        <extracomment>%1, %2: paths.</extracomment>
        <translation>An import into [%1] had not finished. The card database stays as it is; its backup is [%2].</translation>
    </message>
    <message id="IDS_LOG_INF_VMDB_BACKUP_FILE_NAME">
        <source>Backup of the card database: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>Backup of the card database: [%1]</translation>
    </message>
    <message id="IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT">
        <source>Line %1 [%2]: an attachment was skipped, because its name begins with &quot;.&quot; or holds &quot;/&quot; or &quot;:&quot;. Rename the file and import the card again if it is needed.</source>
        <extracomment>%1: line of the data file. %2: full name on the card.</extracomment>
        <translation>Line %1 [%2]: an attachment was skipped, because its name begins with &quot;.&quot; or holds &quot;/&quot; or &quot;:&quot;. Rename the file and import the card again if it is needed.</translation>
    </message>
    <message id="IDS_LOG_WRN_ATTACH_FILE_NAME_FORMAT_FOR_EXPORT">
        <source>Card %1 [%2]: an attachment was skipped, because its name begins with &quot;.&quot; or holds one of / : \ * ? &quot; &lt; &gt; |. Rename the file in Velmora and export again if it is needed.</source>
        <extracomment>%1: number of the card. %2: full name on the card.</extracomment>
        <translation>Card %1 [%2]: an attachment was skipped, because its name begins with &quot;.&quot; or holds one of / : \ * ? &quot; &lt; &gt; |. Rename the file in Velmora and export again if it is needed.</translation>
    </message>
    <message id="IDS_LOG_WRN_ATTACH_NOT_REGULAR">
        <source>Line %1 [%2]: the attachment &quot;%3&quot; was skipped, because it is a link, a device or another special file. Put the file itself into the folder and import the card again if it is needed.</source>
        <extracomment>%1: line of the data file. %2: full name on the card. %3: name of the attachment.</extracomment>
        <translation>Line %1 [%2]: the attachment &quot;%3&quot; was skipped, because it is a link, a device or another special file. Put the file itself into the folder and import the card again if it is needed.</translation>
    </message>
    <message id="IDS_LOG_WRN_ATTACH_NOT_REGULAR_FOR_EXPORT">
        <source>Card %1 [%2]: the attachment &quot;%3&quot; was skipped, because it is a link, a device or another special file. Add the file itself to the card in Velmora and export again if it is needed.</source>
        <extracomment>%1: number of the card. %2: full name on the card. %3: name of the attachment.</extracomment>
        <translation>Card %1 [%2]: the attachment &quot;%3&quot; was skipped, because it is a link, a device or another special file. Add the file itself to the card in Velmora and export again if it is needed.</translation>
    </message>
    <message id="IDS_LOG_WRN_CONVERT_FAIL">
        <source>No. %1 [%2]: the card images could not be converted (code %3), so the card is transferred without images. No. is the line of the data file on import and the number of the card on export. Check the image files of this card.</source>
        <extracomment>%1: line of the data file or number of the card. %2: full name on the card. %3: result code.</extracomment>
        <translation>No. %1 [%2]: the card images could not be converted (code %3), so the card is transferred without images. No. is the line of the data file on import and the number of the card on export. Check the image files of this card.</translation>
    </message>
    <message id="IDS_LOG_WRN_FILE_NO_EXISTS">
        <source>The file or folder does not exist: [%1]. Check its name and put it in this place.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The file or folder does not exist: [%1]. Check its name and put it in this place.</translation>
    </message>
    <message id="IDS_LOG_WRN_IMAGE_FILE_NO_EXISTS">
        <source>Card %1 [%2]: the file of the card images is missing in the card database (code %3), so the card is exported without images. Check the card in Velmora.</source>
        <extracomment>%1: number of the card. %2: full name on the card. %3: result code.</extracomment>
        <translation>Card %1 [%2]: the file of the card images is missing in the card database (code %3), so the card is exported without images. Check the card in Velmora.</translation>
    </message>
    <message id="IDS_LOG_WRN_ITEM_MAX_LEN">
        <source>Line %2 [%3]: the item &quot;%1&quot; is too long. At most 256 characters of an item are stored; the rest is left out. Shorten the item in the data file if the rest matters.</source>
        <extracomment>%1: column title. %2: line of the data file. %3: full name on the card.</extracomment>
        <translation>Line %2 [%3]: the item &quot;%1&quot; is too long. At most 256 characters of an item are stored; the rest is left out. Shorten the item in the data file if the rest matters.</translation>
    </message>
    <message id="IDS_LOG_WRN_NAME_LEADS_OUT">
        <source>Line %1 [%2]: the name &quot;%3&quot; points outside the folder [%4], so it was not used. Put the file into that folder, write its name into the data file without &quot;/&quot; or &quot;..&quot; in front, and import the card again.</source>
        <extracomment>%1: line of the data file. %2: full name on the card. %3: name in the data file. %4: folder.</extracomment>
        <translation>Line %1 [%2]: the name &quot;%3&quot; points outside the folder [%4], so it was not used. Put the file into that folder, write its name into the data file without &quot;/&quot; or &quot;..&quot; in front, and import the card again.</translation>
    </message>
    <message id="IDS_LOG_WRN_REPORT">
        <source>The report [%1] could not be written: %2. The cards are not affected. Check that you may write to its folder and that the disk has free space.</source>
        <extracomment>%1: path. %2: reason.</extracomment>
        <translation>The report [%1] could not be written: %2. The cards are not affected. Check that you may write to its folder and that the disk has free space.</translation>
    </message>
    <message id="IDS_MSG_BACKUP_DELETE">
        <source>Delete this backup? This cannot be undone.

Backup: %1
Made: %2
Contents: %3
Card database: [%4]</source>
        <extracomment>Answered with Yes or No. %1: name. %2: date and time. %3: number of cards, or that it is not usable. %4: path.</extracomment>
        <translation>Delete this backup? This cannot be undone.

Backup: %1
Made: %2
Contents: %3
Card database: [%4]</translation>
    </message>
    <message id="IDS_MSG_BACKUP_RESTORE">
        <source>Restore the card database from this backup? Quit Velmora first. The current card database is backed up before the restore, and the chosen backup is kept as well.

Backup: %1
Made: %2
Contents: %3
Card database: [%4]</source>
        <extracomment>Answered with Yes or No. %1: name. %2: date and time. %3: number of cards. %4: path.</extracomment>
        <translation>Restore the card database from this backup? Quit Velmora first. The current card database is backed up before the restore, and the chosen backup is kept as well.

Backup: %1
Made: %2
Contents: %3
Card database: [%4]</translation>
    </message>
    <message id="IDS_MSG_DATA_COUNT">
        <source>Cards: %L1</source>
        <extracomment>%L1: number of cards. One of the two counts below follows directly.</extracomment>
        <translation>Cards: %L1</translation>
    </message>
    <message id="IDS_MSG_DB_BACKUP_RESTORE_IS_RUNNING">
        <source>%1 of the card database is running.</source>
        <extracomment>%1: Backup or Restore.</extracomment>
        <translation>%1 of the card database is running.</translation>
    </message>
    <message id="IDS_MSG_DB_OPERATION_SUCCESS">
        <source>%1 of the card database has finished.</source>
        <extracomment>%1: Backup.</extracomment>
        <translation>%1 of the card database has finished.</translation>
    </message>
    <message id="IDS_MSG_DB_RESTORE_FINISH">
        <source>%1 of the card database has ended.</source>
        <extracomment>%1: Restore. Shown after a failed restore too.</extracomment>
        <translation>%1 of the card database has ended.</translation>
    </message>
    <message id="IDS_MSG_ERR_0101">
        <source>There is no log file yet. It is created when an import or export runs.</source>
        <translation>There is no log file yet. It is created when an import or export runs.</translation>
    </message>
    <message id="IDS_MSG_ERR_0102">
        <source>An internal error occurred, and the operation could not be completed. Try again. If the error occurs again, see the log for details.</source>
        <translation>An internal error occurred, and the operation could not be completed. Try again. If the error occurs again, see the log for details.</translation>
    </message>
    <message id="IDS_MSG_ERR_0103">
        <source>There is not enough free space on the destination disk. Free some space and try again.</source>
        <translation>There is not enough free space on the destination disk. Free some space and try again.</translation>
    </message>
    <message id="IDS_MSG_ERR_0104">
        <source>Version %1 of Velmora, installed at [%2], is too old. Update Velmora to version 1.1.20 or later and try again.</source>
        <extracomment>%1: installed version. %2: path of the application.</extracomment>
        <translation>Version %1 of Velmora, installed at [%2], is too old. Update Velmora to version 1.1.20 or later and try again.</translation>
    </message>
    <message id="IDS_MSG_ERR_0105">
        <source>[%1] is on a network volume, or its location cannot be determined. Copy it to a disk of this computer, or choose another place on this computer, and try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>[%1] is on a network volume, or its location cannot be determined. Copy it to a disk of this computer, or choose another place on this computer, and try again.</translation>
    </message>
    <message id="IDS_MSG_ERR_0106">
        <source>Quit Velmora before you begin, and do not use the card database until the operation has finished. Do you want to begin?</source>
        <extracomment>Question.</extracomment>
        <translation>Quit Velmora before you begin, and do not use the card database until the operation has finished. Do you want to begin?</translation>
    </message>
    <message id="IDS_MSG_ERR_0108">
        <source>The log file could not be opened for viewing. Open it with a text editor: it is VelmoraConverter.log in the folder Library/Logs of your home folder.</source>
        <translation>The log file could not be opened for viewing. Open it with a text editor: it is VelmoraConverter.log in the folder Library/Logs of your home folder.</translation>
    </message>
    <message id="IDS_MSG_ERR_0109">
        <source>The path of the card database [%1] is too long. Move the card database to a folder with a shorter path and try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The path of the card database [%1] is too long. Move the card database to a folder with a shorter path and try again.</translation>
    </message>
    <message id="IDS_MSG_ERR_0110">
        <source>The path of the folder [%1] is empty or too long. Choose a folder with a shorter path and try again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The path of the folder [%1] is empty or too long. Choose a folder with a shorter path and try again.</translation>
    </message>
    <message id="IDS_MSG_ERR_0111">
        <source>The report could not be opened for viewing. Open it with a web browser: [%1]</source>
        <extracomment>%1: path.</extracomment>
        <translation>The report could not be opened for viewing. Open it with a web browser: [%1]</translation>
    </message>
    <message id="IDS_MSG_ERR_0201">
        <source>The card database to export does not exist at [%1]. Choose an existing card database (.vmdb).</source>
        <extracomment>%1: path.</extracomment>
        <translation>The card database to export does not exist at [%1]. Choose an existing card database (.vmdb).</translation>
    </message>
    <message id="IDS_MSG_ERR_0202">
        <source>The folder to export into does not exist at [%1]. Choose an existing folder.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The folder to export into does not exist at [%1]. Choose an existing folder.</translation>
    </message>
    <message id="IDS_MSG_ERR_0203">
        <source>The card database [%1] is in use. Quit Velmora and other programs that use it, then export again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The card database [%1] is in use. Quit Velmora and other programs that use it, then export again.</translation>
    </message>
    <message id="IDS_MSG_ERR_0204">
        <source>The export folder [%1] could not be created, or the old one could not be replaced. Check that you may write there and that the old folder is not a link, or choose another folder.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The export folder [%1] could not be created, or the old one could not be replaced. Check that you may write there and that the old folder is not a link, or choose another folder.</translation>
    </message>
    <message id="IDS_MSG_ERR_0205">
        <source>There is already an exported folder at [%1]. It will be deleted with everything in it and created again. Do you want to continue?</source>
        <extracomment>Question. %1: path.</extracomment>
        <translation>There is already an exported folder at [%1]. It will be deleted with everything in it and created again. Do you want to continue?</translation>
    </message>
    <message id="IDS_MSG_ERR_0206">
        <source>The export was stopped, because the destination disk is full. Free some space or choose a folder on another disk, then export again.</source>
        <translation>The export was stopped, because the destination disk is full. Free some space or choose a folder on another disk, then export again.</translation>
    </message>
    <message id="IDS_MSG_ERR_0207">
        <source>The export was stopped, because an attachment could not be copied. The log holds the details. Check that the attachment can be read and that you may write to the export folder, then export again.</source>
        <translation>The export was stopped, because an attachment could not be copied. The log holds the details. Check that the attachment can be read and that you may write to the export folder, then export again.</translation>
    </message>
    <message id="IDS_MSG_ERR_0208">
        <source>The export failed. What was written so far may be incomplete. Check that the card database can be opened in Velmora and that you may write to the selected folder, then export again. The log holds the details.</source>
        <translation>The export failed. What was written so far may be incomplete. Check that the card database can be opened in Velmora and that you may write to the selected folder, then export again. The log holds the details.</translation>
    </message>
    <message id="IDS_MSG_ERR_0209">
        <source>The card database holds no cards, so there is nothing to export. Check that you chose the right card database.</source>
        <translation>The card database holds no cards, so there is nothing to export. Check that you chose the right card database.</translation>
    </message>
    <message id="IDS_MSG_ERR_0210">
        <source>Do you want to cancel the export? The folder written so far will be deleted.</source>
        <extracomment>Question.</extracomment>
        <translation>Do you want to cancel the export? The folder written so far will be deleted.</translation>
    </message>
    <message id="IDS_MSG_ERR_0211">
        <source>Cards exported: %L1. The export has finished. Do you want to quit VelmoraConverter?</source>
        <extracomment>Question. %L1: number of cards.</extracomment>
        <translation>Cards exported: %L1. The export has finished. Do you want to quit VelmoraConverter?</translation>
    </message>
    <message id="IDS_MSG_ERR_0301">
        <source>The card database cannot be used, or its disk is full. Check that it is a valid card database (.vmdb), that it is neither locked nor read-only, and that its disk has free space, then try again.</source>
        <translation>The card database cannot be used, or its disk is full. Check that it is a valid card database (.vmdb), that it is neither locked nor read-only, and that its disk has free space, then try again.</translation>
    </message>
    <message id="IDS_MSG_ERR_0302">
        <source>The card database to import into does not exist at [%1]. Choose an existing card database (.vmdb).</source>
        <extracomment>%1: path.</extracomment>
        <translation>The card database to import into does not exist at [%1]. Choose an existing card database (.vmdb).</translation>
    </message>
    <message id="IDS_MSG_ERR_0304">
        <source>The card database [%1] is in use. Quit Velmora and other programs that use it, then import again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The card database [%1] is in use. Quit Velmora and other programs that use it, then import again.</translation>
    </message>
    <message id="IDS_MSG_ERR_0306">
        <source>The data file is empty or holds no cards, so nothing was imported. Check the data file: it needs the title line and at least one line for a card. If a line of it is wrong, the log names that line.</source>
        <translation>The data file is empty or holds no cards, so nothing was imported. Check the data file: it needs the title line and at least one line for a card. If a line of it is wrong, the log names that line.</translation>
    </message>
    <message id="IDS_MSG_ERR_0307">
        <source>Line %1 of the data file is wrong, so nothing was imported. The title line must hold the 21 titles, and every other line 21 items, separated by tabs. Correct the line and import again.</source>
        <extracomment>%1: line of the data file.</extracomment>
        <translation>Line %1 of the data file is wrong, so nothing was imported. The title line must hold the 21 titles, and every other line 21 items, separated by tabs. Correct the line and import again.</translation>
    </message>
    <message id="IDS_MSG_ERR_0308">
        <source>The interchange folder to import does not exist at [%1]. Choose an existing folder.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The interchange folder to import does not exist at [%1]. Choose an existing folder.</translation>
    </message>
    <message id="IDS_MSG_ERR_0309">
        <source>There is no data file at [%1]. Choose an interchange folder that holds this file.</source>
        <extracomment>%1: path of the data file.</extracomment>
        <translation>There is no data file at [%1]. Choose an interchange folder that holds this file.</translation>
    </message>
    <message id="IDS_MSG_ERR_0310">
        <source>The data file could not be read, so nothing was imported. Check that you may read it and that it is saved as Unicode text (UTF-16), then import again.</source>
        <translation>The data file could not be read, so nothing was imported. Check that you may read it and that it is saved as Unicode text (UTF-16), then import again.</translation>
    </message>
    <message id="IDS_MSG_ERR_0311">
        <source>%1 of the card database failed. Check that its folder can be written to and that the disk has free space, then import again. If a restore failed, the card database may be incomplete or missing: put a copy of the backup in its place first.%2</source>
        <extracomment>%1: Backup or Restore. %2: the path of the backup on a line of its own, or nothing.</extracomment>
        <translation>%1 of the card database failed. Check that its folder can be written to and that the disk has free space, then import again. If a restore failed, the card database may be incomplete or missing: put a copy of the backup in its place first.%2</translation>
    </message>
    <message id="IDS_MSG_ERR_0313">
        <source>The import failed, and nothing was imported. Check the interchange folder, and that the card database is not in use and can be written to, then import again. The log holds the details.</source>
        <translation>The import failed, and nothing was imported. Check the interchange folder, and that the card database is not in use and can be written to, then import again. The log holds the details.</translation>
    </message>
    <message id="IDS_MSG_ERR_0314">
        <source>This folder was exported by VelmoraConverter and is not meant to be imported again, so nothing was imported. Choose an interchange folder that another program made for import.</source>
        <translation>This folder was exported by VelmoraConverter and is not meant to be imported again, so nothing was imported. Choose an interchange folder that another program made for import.</translation>
    </message>
    <message id="IDS_MSG_ERR_0315">
        <source>Do you want to cancel the import? The card database will be put back to its state before the import.</source>
        <extracomment>Question.</extracomment>
        <translation>Do you want to cancel the import? The card database will be put back to its state before the import.</translation>
    </message>
    <message id="IDS_MSG_ERR_0316">
        <source>The file &quot;Version.txt&quot; of the interchange folder is missing or names another version, so nothing was imported. Choose an interchange folder of version V1.0L10.</source>
        <translation>The file &quot;Version.txt&quot; of the interchange folder is missing or names another version, so nothing was imported. Choose an interchange folder of version V1.0L10.</translation>
    </message>
    <message id="IDS_MSG_ERR_0317">
        <source>Cards imported: %L1. The import has finished. Do you want to quit VelmoraConverter?</source>
        <extracomment>Question. %L1: number of cards.</extracomment>
        <translation>Cards imported: %L1. The import has finished. Do you want to quit VelmoraConverter?</translation>
    </message>
    <message id="IDS_MSG_EXPORT_COUNT">
        <source>, exported: %L1</source>
        <extracomment>%L1: number of cards done. Directly follows IDS_MSG_DATA_COUNT.</extracomment>
        <translation>, exported: %L1</translation>
    </message>
    <message id="IDS_MSG_EXPORT_PROGRESS">
        <source>Exporting: %1%</source>
        <extracomment>%1: percentage.</extracomment>
        <translation>Exporting: %1%</translation>
    </message>
    <message id="IDS_MSG_IMPORT_COUNT">
        <source>, imported: %L1</source>
        <extracomment>%L1: number of cards done. Directly follows IDS_MSG_DATA_COUNT.</extracomment>
        <translation>, imported: %L1</translation>
    </message>
    <message id="IDS_MSG_IMPORT_PROGRESS">
        <source>Importing: %1%</source>
        <extracomment>%1: percentage.</extracomment>
        <translation>Importing: %1%</translation>
    </message>
    <message id="IDS_MSG_PROCESS_IS_FINISHED">
        <source>%1 has finished.</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1 has finished.</translation>
    </message>
    <message id="IDS_MSG_PROCESS_IS_RUNNING">
        <source>%1 is running.</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1 is running.</translation>
    </message>
    <message id="IDS_MSG_REFERENCE_LOG_FILE">
        <source>There are warnings or errors. Open the log to see them.</source>
        <translation>There are warnings or errors. Open the log to see them.</translation>
    </message>
    <message id="IDS_MSG_UNFINISHED_CHANGED">
        <source>An import into the card database [%1] did not finish. Since then, another program has changed the card database: %3.
Backup from before the import: [%2]

Restore the backup now? Yes: the card database is put back to its state before that import, and the changed one is kept beside it under the next backup name. No: the card database stays as it is, and a copy of it is kept under the next backup name.</source>
        <extracomment>%1, %2: paths. %3: IDS_RECOVER_CHANGES or IDS_RECOVER_UNKNOWN. Answered with Yes or No.</extracomment>
        <translation>An import into the card database [%1] did not finish. Since then, another program has changed the card database: %3.
Backup from before the import: [%2]

Restore the backup now? Yes: the card database is put back to its state before that import, and the changed one is kept beside it under the next backup name. No: the card database stays as it is, and a copy of it is kept under the next backup name.</translation>
    </message>
    <message id="IDS_MSG_UNFINISHED_IMPORT">
        <source>An import into the card database [%1] did not finish.
Backup from before it: [%2]

Restore the backup now? Yes: the card database is put back to its state before that import. No: the card database and the backup stay as they are.</source>
        <extracomment>%1, %2: paths. Answered with Yes or No.</extracomment>
        <translation>An import into the card database [%1] did not finish.
Backup from before it: [%2]

Restore the backup now? Yes: the card database is put back to its state before that import. No: the card database and the backup stay as they are.</translation>
    </message>
    <message id="IDS_MSG_WARNED_CARDS">
        <source>Cards with warnings or errors: %L1</source>
        <extracomment>%L1: number of cards.</extracomment>
        <translation>Cards with warnings or errors: %L1</translation>
    </message>
    <message id="IDS_MSG_WARNED_COUNT">
        <source>, with warnings: %L1</source>
        <extracomment>Follows IDS_MSG_IMPORT_COUNT or IDS_MSG_EXPORT_COUNT. %L1: number of cards.</extracomment>
        <translation>, with warnings: %L1</translation>
    </message>
    <message id="IDS_OPEN_DATA_FILE_PANEL_TITLE">
        <source>Choose a Folder</source>
        <translation>Choose a Folder</translation>
    </message>
    <message id="IDS_OPEN_VMDB_FILE_PANEL_TITLE">
        <source>Choose a Card Database</source>
        <translation>Choose a Card Database</translation>
    </message>
    <message id="IDS_RECOVER_CHANGES">
        <source>cards added: %L1, changed: %L2, removed: %L3; other files: %L4</source>
        <extracomment>Counts, inside IDS_MSG_UNFINISHED_CHANGED.</extracomment>
        <translation>cards added: %L1, changed: %L2, removed: %L3; other files: %L4</translation>
    </message>
    <message id="IDS_RECOVER_UNKNOWN">
        <source>it cannot be compared with the backup</source>
        <extracomment>Inside IDS_MSG_UNFINISHED_CHANGED, in place of the counts.</extracomment>
        <translation>it cannot be compared with the backup</translation>
    </message>
    <message id="IDS_REPORT_ASKED">
        <source>Operation</source>
        <translation>Operation</translation>
    </message>
    <message id="IDS_REPORT_BACKUP">
        <source>Backup from before the operation</source>
        <extracomment>Label before a path.</extracomment>
        <translation>Backup from before the operation</translation>
    </message>
    <message id="IDS_REPORT_CARDS_CONCERNED">
        <source>Cards to look at</source>
        <translation>Cards to look at</translation>
    </message>
    <message id="IDS_REPORT_CARDS_EXPORTED">
        <source>Cards exported</source>
        <translation>Cards exported</translation>
    </message>
    <message id="IDS_REPORT_CARDS_HANDLED">
        <source>Cards processed before the end</source>
        <extracomment>Label for cards that were removed again or are not complete.</extracomment>
        <translation>Cards processed before the end</translation>
    </message>
    <message id="IDS_REPORT_CARDS_IMPORTED">
        <source>Cards imported</source>
        <translation>Cards imported</translation>
    </message>
    <message id="IDS_REPORT_COUNT">
        <source>%L1 of %L2</source>
        <extracomment>%L1: cards handled. %L2: cards in all.</extracomment>
        <translation>%L1 of %L2</translation>
    </message>
    <message id="IDS_REPORT_DATA">
        <source>The same report for programs:</source>
        <extracomment>Label before the name of a file.</extracomment>
        <translation>The same report for programs:</translation>
    </message>
    <message id="IDS_REPORT_END_EXPORTED">
        <source>The cards are in the interchange folder. The card database was not changed.</source>
        <translation>The cards are in the interchange folder. The card database was not changed.</translation>
    </message>
    <message id="IDS_REPORT_END_EXPORT_INCOMPLETE">
        <source>The interchange folder is incomplete: it holds only the cards written so far. The card database was not changed.</source>
        <translation>The interchange folder is incomplete: it holds only the cards written so far. The card database was not changed.</translation>
    </message>
    <message id="IDS_REPORT_END_EXPORT_REMOVED">
        <source>Everything written so far was removed again. The card database was not changed.</source>
        <translation>Everything written so far was removed again. The card database was not changed.</translation>
    </message>
    <message id="IDS_REPORT_END_IMPORTED">
        <source>The cards are stored in the card database. The backup from before the import is kept until you delete it.</source>
        <translation>The cards are stored in the card database. The backup from before the import is kept until you delete it.</translation>
    </message>
    <message id="IDS_REPORT_END_NOT_RESTORED">
        <source>The card database could not be put back and may be incomplete. Put a copy of the backup in its place before you use it.</source>
        <translation>The card database could not be put back and may be incomplete. Put a copy of the backup in its place before you use it.</translation>
    </message>
    <message id="IDS_REPORT_END_UNCHANGED">
        <source>The card database is as it was before.</source>
        <translation>The card database is as it was before.</translation>
    </message>
    <message id="IDS_REPORT_ERROR">
        <source>Error</source>
        <translation>Error</translation>
    </message>
    <message id="IDS_REPORT_FATE">
        <source>Result</source>
        <extracomment>Title of a column.</extracomment>
        <translation>Result</translation>
    </message>
    <message id="IDS_REPORT_FATE_ITEM_SHORTENED">
        <source>Transferred with the item cut off.</source>
        <translation>Transferred with the item cut off.</translation>
    </message>
    <message id="IDS_REPORT_FATE_NOT_CERTAIN">
        <source>Not certain.</source>
        <translation>Not certain.</translation>
    </message>
    <message id="IDS_REPORT_FATE_NOT_EXPORTED">
        <source>Not exported.</source>
        <translation>Not exported.</translation>
    </message>
    <message id="IDS_REPORT_FATE_NOT_IMPORTED">
        <source>Not imported.</source>
        <translation>Not imported.</translation>
    </message>
    <message id="IDS_REPORT_FATE_STOPPED">
        <source>The operation stopped here.</source>
        <translation>The operation stopped here.</translation>
    </message>
    <message id="IDS_REPORT_FATE_WITHOUT_ATTACHMENT">
        <source>Transferred without this attachment.</source>
        <translation>Transferred without this attachment.</translation>
    </message>
    <message id="IDS_REPORT_FATE_WITHOUT_ATTACHMENTS">
        <source>Transferred without attachments.</source>
        <translation>Transferred without attachments.</translation>
    </message>
    <message id="IDS_REPORT_FATE_WITHOUT_IMAGE">
        <source>Transferred without this image.</source>
        <translation>Transferred without this image.</translation>
    </message>
    <message id="IDS_REPORT_FATE_WITHOUT_IMAGES">
        <source>Transferred without images.</source>
        <translation>Transferred without images.</translation>
    </message>
    <message id="IDS_REPORT_FROM">
        <source>Interchange folder that was imported</source>
        <extracomment>Label before a path.</extracomment>
        <translation>Interchange folder that was imported</translation>
    </message>
    <message id="IDS_REPORT_HOURS">
        <source>%L1 h %L2 min</source>
        <extracomment>Time taken.</extracomment>
        <translation>%L1 h %L2 min</translation>
    </message>
    <message id="IDS_REPORT_INTO">
        <source>Card database imported into</source>
        <extracomment>Label before a path.</extracomment>
        <translation>Card database imported into</translation>
    </message>
    <message id="IDS_REPORT_KEPT">
        <source>VelmoraConverter %1 keeps the newest %L2 reports beside the log. Copy the reports that you want to keep longer.</source>
        <extracomment>%1: version. %L2: number of reports.</extracomment>
        <translation>VelmoraConverter %1 keeps the newest %L2 reports beside the log. Copy the reports that you want to keep longer.</translation>
    </message>
    <message id="IDS_REPORT_LEFT_OUT">
        <source>There are %L1 more warnings and errors. Only the log lists them.</source>
        <extracomment>%L1: number.</extracomment>
        <translation>There are %L1 more warnings and errors. Only the log lists them.</translation>
    </message>
    <message id="IDS_REPORT_LINE">
        <source>Line</source>
        <extracomment>Title of a column with line numbers of the data file.</extracomment>
        <translation>Line</translation>
    </message>
    <message id="IDS_REPORT_LOG">
        <source>Log</source>
        <extracomment>Label before a path.</extracomment>
        <translation>Log</translation>
    </message>
    <message id="IDS_REPORT_MESSAGE_NUMBER">
        <source>(message %1)</source>
        <extracomment>%1: number.</extracomment>
        <translation>(message %1)</translation>
    </message>
    <message id="IDS_REPORT_MINUTES">
        <source>%L1 min %L2 s</source>
        <extracomment>Time taken.</extracomment>
        <translation>%L1 min %L2 s</translation>
    </message>
    <message id="IDS_REPORT_NAME">
        <source>Name</source>
        <extracomment>Title of a column.</extracomment>
        <translation>Name</translation>
    </message>
    <message id="IDS_REPORT_NOTHING">
        <source>No card had a warning or an error.</source>
        <translation>No card had a warning or an error.</translation>
    </message>
    <message id="IDS_REPORT_NO_NAME">
        <source>(no name)</source>
        <extracomment>Shown in place of the name of a card without one.</extracomment>
        <translation>(no name)</translation>
    </message>
    <message id="IDS_REPORT_NUMBER">
        <source>Card</source>
        <extracomment>Title of a column with running numbers of cards.</extracomment>
        <translation>Card</translation>
    </message>
    <message id="IDS_REPORT_NUMBER_OF_CARDS">
        <source>%L1</source>
        <extracomment>%L1: number of cards.</extracomment>
        <translation>%L1</translation>
    </message>
    <message id="IDS_REPORT_OTHERS">
        <source>Not about a single card</source>
        <translation>Not about a single card</translation>
    </message>
    <message id="IDS_REPORT_OUT_OF">
        <source>Card database that was exported</source>
        <extracomment>Label before a path.</extracomment>
        <translation>Card database that was exported</translation>
    </message>
    <message id="IDS_REPORT_REASON">
        <source>Why it failed</source>
        <translation>Why it failed</translation>
    </message>
    <message id="IDS_REPORT_SECONDS">
        <source>%1 s</source>
        <extracomment>Time taken.</extracomment>
        <translation>%1 s</translation>
    </message>
    <message id="IDS_REPORT_STARTED">
        <source>Started</source>
        <extracomment>Label before a date and time.</extracomment>
        <translation>Started</translation>
    </message>
    <message id="IDS_REPORT_TIME">
        <source>Time taken</source>
        <translation>Time taken</translation>
    </message>
    <message id="IDS_REPORT_TITLE_CANCELLED">
        <source>%1 cancelled</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1 cancelled</translation>
    </message>
    <message id="IDS_REPORT_TITLE_DONE">
        <source>%1 finished</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1 finished</translation>
    </message>
    <message id="IDS_REPORT_TITLE_FAILED">
        <source>%1 failed</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1 failed</translation>
    </message>
    <message id="IDS_REPORT_TITLE_WARNINGS">
        <source>%1 finished, with warnings</source>
        <extracomment>%1: name of the operation.</extracomment>
        <translation>%1 finished, with warnings</translation>
    </message>
    <message id="IDS_REPORT_TO">
        <source>Interchange folder exported to</source>
        <extracomment>Label before a path.</extracomment>
        <translation>Interchange folder exported to</translation>
    </message>
    <message id="IDS_REPORT_WARNING">
        <source>Warning</source>
        <translation>Warning</translation>
    </message>
    <message id="IDS_REPORT_WRONG">
        <source>Problem</source>
        <extracomment>Title of a column.</extracomment>
        <translation>Problem</translation>
    </message>
    <message id="IDS_TITLE_BACKUPS">
        <source>Backups</source>
        <extracomment>Title of a window.</extracomment>
        <translation>Backups</translation>
    </message>
    <message id="IDS_TITLE_CHECK">
        <source>Check of the Interchange Folder</source>
        <extracomment>Title of a window.</extracomment>
        <translation>Check of the Interchange Folder</translation>
    </message>
    <message id="IDS_TITLE_WINDOW">
        <source>VelmoraConverter</source>
        <extracomment>Title of the window and of every message.</extracomment>
        <translation>VelmoraConverter</translation>
    </message>
    <message id="IDS_VERIFY_ATTACHMENTS_UNREADABLE">
        <source>Card &quot;%1&quot; (%2): its attachment folder [%3] cannot be read: %4. Check that it is a folder and that you may read it.</source>
        <extracomment>%1: full name on the card. %2: card ID. %3: folder. %4: reason.</extracomment>
        <translation>Card &quot;%1&quot; (%2): its attachment folder [%3] cannot be read: %4. Check that it is a folder and that you may read it.</translation>
    </message>
    <message id="IDS_VERIFY_ATTACHMENT_UNREADABLE">
        <source>Card &quot;%1&quot; (%2): its attachment [%3] cannot be read. Check that you may read it, or put the file back from a backup of the card database.</source>
        <extracomment>%1: full name on the card. %2: card ID. %3: path.</extracomment>
        <translation>Card &quot;%1&quot; (%2): its attachment [%3] cannot be read. Check that you may read it, or put the file back from a backup of the card database.</translation>
    </message>
    <message id="IDS_VERIFY_CARD_NAME_LEADS_OUT">
        <source>Card &quot;%1&quot; (%2): the name &quot;%3&quot; points outside the card database and is not used. Correct the card in Velmora.</source>
        <extracomment>%1: full name on the card. %2: card ID. %3: name.</extracomment>
        <translation>Card &quot;%1&quot; (%2): the name &quot;%3&quot; points outside the card database and is not used. Correct the card in Velmora.</translation>
    </message>
    <message id="IDS_VERIFY_CARD_PDF_MISSING">
        <source>Card &quot;%1&quot; (%2): its image file [%3] is missing, so the card is exported without images. Put the file back from a backup of the card database.</source>
        <extracomment>%1: full name on the card. %2: card ID. %3: path.</extracomment>
        <translation>Card &quot;%1&quot; (%2): its image file [%3] is missing, so the card is exported without images. Put the file back from a backup of the card database.</translation>
    </message>
    <message id="IDS_VERIFY_CARD_PDF_UNUSABLE">
        <source>Card &quot;%1&quot; (%2): its image file [%3] is damaged, protected or not a card PDF, so the card is exported without images. Put the file back from a backup of the card database.</source>
        <extracomment>%1: full name on the card. %2: card ID. %3: path.</extracomment>
        <translation>Card &quot;%1&quot; (%2): its image file [%3] is damaged, protected or not a card PDF, so the card is exported without images. Put the file back from a backup of the card database.</translation>
    </message>
    <message id="IDS_VERIFY_FILE_UNNAMED">
        <source>No card refers to [%1], so it only takes up space. Once you are sure that you do not need it, move it out of the card database.</source>
        <extracomment>%1: path.</extracomment>
        <translation>No card refers to [%1], so it only takes up space. Once you are sure that you do not need it, move it out of the card database.</translation>
    </message>
    <message id="IDS_VERIFY_FOLDER_UNREADABLE">
        <source>The folder [%1] cannot be read: %2. Check that it is a folder and that you may read it.</source>
        <extracomment>%1: folder. %2: reason.</extracomment>
        <translation>The folder [%1] cannot be read: %2. Check that it is a folder and that you may read it.</translation>
    </message>
    <message id="IDS_VERIFY_IN_USE">
        <source>The card database [%1] is in use by another program, so it cannot be verified reliably. Quit that program and verify again.</source>
        <extracomment>%1: path.</extracomment>
        <translation>The card database [%1] is in use by another program, so it cannot be verified reliably. Quit that program and verify again.</translation>
    </message>
    <message id="IDS_VERIFY_NO_FOLDER">
        <source>There is no card database at [%1]. Check the path: a card database is a folder whose name ends in &quot;.vmdb&quot;.</source>
        <extracomment>%1: path.</extracomment>
        <translation>There is no card database at [%1]. Check the path: a card database is a folder whose name ends in &quot;.vmdb&quot;.</translation>
    </message>
    <message id="IDS_VERIFY_STORE_DAMAGED">
        <source>The card store [%1] is damaged: %2. Do not import into this card database, but go back to a backup of it.</source>
        <extracomment>%1: path of the store. %2: what is wrong.</extracomment>
        <translation>The card store [%1] is damaged: %2. Do not import into this card database, but go back to a backup of it.</translation>
    </message>
    <message id="IDS_VERIFY_STORE_KEYS">
        <source>The card store [%1] records %2 as the highest key of its cards, but there is a card with key %3, so no card can be added. Go back to a backup of the card database.</source>
        <extracomment>%1: path of the store. %2: highest key noted. %3: highest key found.</extracomment>
        <translation>The card store [%1] records %2 as the highest key of its cards, but there is a card with key %3, so no card can be added. Go back to a backup of the card database.</translation>
    </message>
    <message id="IDS_VERIFY_STORE_MISSING">
        <source>The card store [%1] is missing, so the card database holds no cards. Put the file back from a backup of the card database.</source>
        <extracomment>%1: path of the store.</extracomment>
        <translation>The card store [%1] is missing, so the card database holds no cards. Put the file back from a backup of the card database.</translation>
    </message>
    <message id="IDS_VERIFY_STORE_MODEL">
        <source>The card store [%1] does not have the expected format: it lacks %2. Open the card database once with the current version of Velmora, then verify again.</source>
        <extracomment>%1: path of the store. %2: missing tables or columns.</extracomment>
        <translation>The card store [%1] does not have the expected format: it lacks %2. Open the card database once with the current version of Velmora, then verify again.</translation>
    </message>
    <message id="IDS_VERIFY_STORE_NOT_READ">
        <source>The card store [%1] could not be read: %2. Check that you may read it and that the folder for temporary files has room for a copy of it, then verify again.</source>
        <extracomment>%1: path of the store. %2: reason.</extracomment>
        <translation>The card store [%1] could not be read: %2. Check that you may read it and that the folder for temporary files has room for a copy of it, then verify again.</translation>
    </message>
    <message id="IDS_VERIFY_STORE_NO_STORE">
        <source>[%1] is not a card store: %2. Put the file back from a backup of the card database.</source>
        <extracomment>%1: path of the store. %2: reason.</extracomment>
        <translation>[%1] is not a card store: %2. Put the file back from a backup of the card database.</translation>
    </message>
</context>
</TS>
