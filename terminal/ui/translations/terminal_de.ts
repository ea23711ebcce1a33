<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: BSD-3-Clause -->
<TS version="2.1" language="de_DE" sourcelanguage="en_GB">
<context>
    <name>ActionBar</name>
    <message>
        <source>Print</source>
        <translation>Drucken</translation>
    </message>
</context>
<context>
    <name>ApplicationArea</name>
    <message>
        <source>No application is loaded</source>
        <translation>Keine Anwendung geladen</translation>
    </message>
    <message>
        <source>The terminal weighs on its own. Start it with --plugin PATH to run an application.</source>
        <translation>Das Terminal wägt allein. Mit --plugin PFAD gestartet führt es eine Anwendung aus.</translation>
    </message>
    <message>
        <source>The application&apos;s screen cannot be shown</source>
        <translation>Der Bildschirm der Anwendung kann nicht gezeigt werden</translation>
    </message>
    <message>
        <source>No application is running</source>
        <translation>Es läuft keine Anwendung</translation>
    </message>
    <message>
        <source>The terminal weighs on its own. Choose an application at the top left.</source>
        <translation>Das Terminal wägt allein. Oben links lässt sich eine Anwendung wählen.</translation>
    </message>
</context>
<context>
    <name>ApplicationMenu</name>
    <message>
        <source>Protocol…</source>
        <translation>Protokoll…</translation>
    </message>
</context>
<context>
    <name>Bench</name>
    <message>
        <source>Plug-in faults</source>
        <translation>Fehler der Plug-ins</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Scale</source>
        <translation>Waage</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Einheiten</translation>
    </message>
    <message>
        <source>Transfer</source>
        <translation>Übernahme</translation>
    </message>
    <message>
        <source>Printer</source>
        <translation>Drucker</translation>
    </message>
</context>
<context>
    <name>BenchPrinterPage</name>
    <message>
        <source>No paper</source>
        <translation>Kein Papier</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>Offline</translation>
    </message>
    <message>
        <source>Slow</source>
        <translation>Langsam</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>Erneut</translation>
    </message>
    <message>
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Paper roll</source>
        <translation>Papierrolle</translation>
    </message>
    <message>
        <source>Tear off</source>
        <translation>Abreißen</translation>
    </message>
    <message>
        <source>What is printed does not appear here: this terminal prints elsewhere.</source>
        <translation>Was gedruckt wird, erscheint nicht hier: Dieses Terminal druckt woandershin.</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>BenchScalePage</name>
    <message>
        <source>On the scale</source>
        <translation>Auf der Waage</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Abräumen</translation>
    </message>
    <message>
        <source>The scale is not simulated</source>
        <translation>Die Waage ist nicht simuliert</translation>
    </message>
    <message>
        <source>Weights, noise, drift and the cable can be changed on the simulated scale only. Level and calibration can be tried with every source.</source>
        <translation>Gewichte, Rauschen, Drift und Kabel lassen sich nur an der simulierten Waage ändern. Nivellierung und Kalibrierung lassen sich mit jeder Quelle erproben.</translation>
    </message>
    <message>
        <source>Noise</source>
        <translation>Rauschen</translation>
    </message>
    <message>
        <source>Drift</source>
        <translation>Drift</translation>
    </message>
    <message>
        <source>Scale is level</source>
        <translation>Waage steht eben</translation>
    </message>
    <message>
        <source>Scale is tilted</source>
        <translation>Waage steht schief</translation>
    </message>
    <message>
        <source>Drag the bubble</source>
        <translation>Luftblase ziehen</translation>
    </message>
    <message>
        <source>Tilt</source>
        <translation>Kippen</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Nivellieren</translation>
    </message>
    <message>
        <source>Load cell connected</source>
        <translation>Wägezelle verbunden</translation>
    </message>
    <message>
        <source>Calibration due</source>
        <translation>Kalibrierung fällig</translation>
    </message>
</context>
<context>
    <name>BenchTransferPage</name>
    <message>
        <source>Transfer at a change of load</source>
        <translation>Übernahme bei Lastwechsel</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>Grams</source>
        <translation>Gramm</translation>
    </message>
    <message>
        <source>Percent</source>
        <translation>Prozent</translation>
    </message>
    <message>
        <source>Band stays at the first load</source>
        <translation>Band bleibt bei der ersten Last</translation>
    </message>
    <message>
        <source>Threshold</source>
        <translation>Schwelle</translation>
    </message>
    <message>
        <source>Armed, without a band</source>
        <translation>Bereit, ohne Band</translation>
    </message>
    <message>
        <source>Watching</source>
        <translation>Überwacht</translation>
    </message>
    <message>
        <source>Triggered</source>
        <translation>Ausgelöst</translation>
    </message>
    <message>
        <source>Reference</source>
        <translation>Referenz</translation>
    </message>
    <message>
        <source>Band from</source>
        <translation>Band von</translation>
    </message>
    <message>
        <source>Band up to</source>
        <translation>Band bis</translation>
    </message>
    <message>
        <source>Register 74</source>
        <translation>Register 74</translation>
    </message>
    <message>
        <source>Triggers</source>
        <translation>Auslösungen</translation>
    </message>
    <message>
        <source>Last trigger</source>
        <translation>Letzte Auslösung</translation>
    </message>
</context>
<context>
    <name>BenchUnitsPage</name>
    <message>
        <source>The unit key steps through</source>
        <translation>Die Einheitentaste bietet an</translation>
    </message>
    <message>
        <source>No unit: the approval leaves none. Weights are shown in gram.</source>
        <translation>Keine Einheit: Der Eichbetrieb lässt keine zu. Gewichte werden in Gramm gezeigt.</translation>
    </message>
    <message>
        <source>Approved units only</source>
        <translation>Nur geeichte Einheiten</translation>
    </message>
    <message>
        <source>Carat allowed</source>
        <translation>Karat erlaubt</translation>
    </message>
    <message>
        <source>Last digit not verified</source>
        <translation>Letzte Ziffer ungeeicht</translation>
    </message>
    <message>
        <source>Decimals at least</source>
        <translation>Mindeststellen</translation>
    </message>
    <message>
        <source>Digits left out</source>
        <translation>Fehlende Ziffern</translation>
    </message>
    <message>
        <source>Weighing parameters in force</source>
        <translation>Geltende Wägeparameter</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>MSW</source>
        <translation>MSW</translation>
    </message>
    <message>
        <source>Restore</source>
        <translation>Zurück</translation>
    </message>
</context>
<context>
    <name>Brimvale::PrintItemCurrentMeasurement</name>
    <message>
        <source>Current measurement</source>
        <translation>Aktuelle Messung</translation>
    </message>
    <message>
        <source>Measurement</source>
        <translation>Messung</translation>
    </message>
</context>
<context>
    <name>Brimvale::PrintableItemBase</name>
    <message>
        <source>Measurement</source>
        <translation>Messung</translation>
    </message>
    <message>
        <source>General</source>
        <translation>Allgemein</translation>
    </message>
    <message>
        <source>Application</source>
        <translation>Anwendung</translation>
    </message>
    <message>
        <source>Device</source>
        <translation>Gerät</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::ActionBar</name>
    <message>
        <source>The action bar has no entry %1: entries are numbered 0 to %2.</source>
        <translation>Die Aktionsleiste hat keinen Eintrag %1: Die Einträge tragen die Nummern 0 bis %2.</translation>
    </message>
    <message>
        <source>An action that is null was not added to the action bar.</source>
        <translation>Eine Aktion, die null ist, wurde nicht in die Aktionsleiste aufgenommen.</translation>
    </message>
    <message>
        <source>An action that is no QObject was not added to the action bar. Derive it from ActionBase.</source>
        <translation>Eine Aktion, die kein QObject ist, wurde nicht in die Aktionsleiste aufgenommen. Leiten Sie sie von ActionBase ab.</translation>
    </message>
    <message>
        <source>The action &quot;%1&quot; was not added to the action bar: &quot;%2&quot; has the same uid &quot;%3&quot;. Give every action a uid of its own with setUid().</source>
        <translation>Die Aktion &quot;%1&quot; wurde nicht in die Aktionsleiste aufgenommen: &quot;%2&quot; hat dieselbe uid &quot;%3&quot;. Geben Sie jeder Aktion mit setUid() eine eigene uid.</translation>
    </message>
    <message>
        <source>The action &quot;%1&quot; failed: %2</source>
        <translation>Die Aktion &quot;%1&quot; ist fehlgeschlagen: %2</translation>
    </message>
    <message>
        <source>The action &quot;%1&quot; cannot be shown: %2</source>
        <translation>Die Aktion &quot;%1&quot; kann nicht gezeigt werden: %2</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::AddonHost</name>
    <message>
        <source>Add-ons are not available on this terminal yet: those of number %1 were not started.</source>
        <translation>Add-ons gibt es auf diesem Terminal noch nicht: Die der Nummer %1 wurden nicht gestartet.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::AutomaticTransfer</name>
    <message>
        <source>The minimum load of the automatic transfer must not be below 0 g.</source>
        <translation>Die Mindestlast der automatischen Übernahme darf nicht unter 0 g liegen.</translation>
    </message>
    <message>
        <source>The threshold of the automatic transfer must be a whole number from 1 to 99 percent.</source>
        <translation>Die Schwelle der automatischen Übernahme muss eine ganze Zahl von 1 bis 99 Prozent sein.</translation>
    </message>
    <message>
        <source>The threshold of the automatic transfer must be above 0 g and below %1 g.</source>
        <translation>Die Schwelle der automatischen Übernahme muss über 0 g und unter %1 g liegen.</translation>
    </message>
    <message>
        <source>%1 not transferred: not above the minimum load</source>
        <translation>%1 nicht übernommen: nicht über der Mindestlast</translation>
    </message>
    <message>
        <source>%1 not transferred: outside the reference&apos;s band</source>
        <translation>%1 nicht übernommen: außerhalb des Bandes</translation>
    </message>
    <message>
        <source>%1 transferred</source>
        <translation>%1 übernommen</translation>
    </message>
    <message>
        <source>%1 left to the application</source>
        <translation>%1 der Anwendung überlassen</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::CalibrationService</name>
    <message>
        <source>Calibration required</source>
        <translation>Kalibrierung erforderlich</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::ElfFile</name>
    <message>
        <source>an object file</source>
        <translation>eine Objektdatei</translation>
    </message>
    <message>
        <source>an executable</source>
        <translation>ein Programm</translation>
    </message>
    <message>
        <source>a shared library</source>
        <translation>eine Programmbibliothek</translation>
    </message>
    <message>
        <source>a core dump</source>
        <translation>ein Speicherauszug</translation>
    </message>
    <message>
        <source>kind %1</source>
        <translation>Art %1</translation>
    </message>
    <message>
        <source>its header is incomplete</source>
        <translation>ihr Kopf ist unvollständig</translation>
    </message>
    <message>
        <source>its header names no known format</source>
        <translation>ihr Kopf nennt kein bekanntes Format</translation>
    </message>
    <message>
        <source>it has %1 bytes, its headers speak of %2</source>
        <translation>sie hat %1 Bytes, ihre Köpfe sprechen von %2</translation>
    </message>
    <message>
        <source>an unknown processor (number %1)</source>
        <translation>ein unbekannter Prozessor (Nummer %1)</translation>
    </message>
    <message>
        <source>%1 (%2 bit, %3)</source>
        <translation>%1 (%2 Bit, %3)</translation>
    </message>
    <message>
        <source>one of its tables has entries of %1 bytes</source>
        <translation>eine ihrer Tabellen hat Einträge von %1 Bytes</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::FilePrinter</name>
    <message>
        <source>Text file %1</source>
        <translation>Textdatei %1</translation>
    </message>
    <message>
        <source>The file %1 cannot be written: %2. Check the path, its permissions and the free space, then repeat the print-out.</source>
        <translation>Die Datei %1 kann nicht geschrieben werden: %2. Prüfen Sie den Pfad, seine Rechte und den freien Platz und wiederholen Sie dann den Druck.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::Formatter</name>
    <message>
        <source>Overload</source>
        <translation>Überlast</translation>
    </message>
    <message>
        <source>No reading</source>
        <translation>Kein Messwert</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::Host</name>
    <message>
        <source>The application failed while it was told about the level: %1</source>
        <translation>Die Anwendung ist fehlgeschlagen, als sie die Nivellierung erfuhr: %1</translation>
    </message>
    <message>
        <source>The application failed while it was told about the calibration: %1</source>
        <translation>Die Anwendung ist fehlgeschlagen, als sie die Kalibrierung erfuhr: %1</translation>
    </message>
    <message>
        <source>Printing is switched off.</source>
        <translation>Drucken ist ausgeschaltet.</translation>
    </message>
    <message>
        <source>There is no output that could take the measurement: neither a printer nor the transfer log is connected.</source>
        <translation>Es gibt keine Ausgabe für die Messung: Weder ein Drucker noch das Übertragungsprotokoll ist verbunden.</translation>
    </message>
    <message>
        <source>The application failed at the print request: %1</source>
        <translation>Die Anwendung ist bei der Druckanforderung fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>An application failed: %1</source>
        <translation>Eine Anwendung ist fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>The application &quot;%1&quot; failed: %2</source>
        <translation>Die Anwendung &quot;%1&quot; ist fehlgeschlagen: %2</translation>
    </message>
    <message>
        <source>This step of the workflow has nothing to print.</source>
        <translation>Dieser Schritt des Ablaufs hat nichts zu drucken.</translation>
    </message>
    <message>
        <source>The weight does not fit into the display: choose a larger unit.</source>
        <translation>Das Gewicht passt nicht in die Anzeige: Wählen Sie eine größere Einheit.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::HostMenuList</name>
    <message>
        <source>Weighing parameters</source>
        <translation>Wägeparameter</translation>
    </message>
    <message>
        <source>Parameter %1</source>
        <translation>Parameter %1</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::LineSource</name>
    <message>
        <source>No answer within %1 s.</source>
        <translation>Keine Antwort innerhalb von %1 s.</translation>
    </message>
    <message>
        <source>What arrives has no weight line for %1 s; check the scale&apos;s interface settings.</source>
        <translation>Seit %1 s kommt keine Gewichtszeile an; prüfen Sie die Schnittstelleneinstellungen der Waage.</translation>
    </message>
    <message>
        <source>No data for %1 s.</source>
        <translation>Seit %1 s keine Daten.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::LoadChangeMonitor</name>
    <message>
        <source>%1 was above the band up to %2</source>
        <translation>%1 lag über dem Band bis %2</translation>
    </message>
    <message>
        <source>%1 was below the band from %2</source>
        <translation>%1 lag unter dem Band ab %2</translation>
    </message>
    <message>
        <source>switched off</source>
        <translation>abgeschaltet</translation>
    </message>
    <message>
        <source>no valid reading: %1</source>
        <translation>kein gültiger Messwert: %1</translation>
    </message>
    <message>
        <source>inside the band: %1</source>
        <translation>innerhalb des Bandes: %1</translation>
    </message>
    <message>
        <source>triggered, waits to be armed again</source>
        <translation>ausgelöst, wartet auf neue Bereitschaft</translation>
    </message>
    <message>
        <source>no band: %1 is not above the minimum of %2</source>
        <translation>kein Band: %1 liegt nicht über dem Minimum von %2</translation>
    </message>
    <message>
        <source>not latched: waits for the next stable weight</source>
        <translation>ohne Band: wartet auf das nächste stabile Gewicht</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::LoadChangeTrigger</name>
    <message>
        <source>Change of load</source>
        <translation>Laständerung</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::MenuStore</name>
    <message>
        <source>The menu of the application names no menu file. Set m_menuFilePath in its constructor.</source>
        <translation>Das Menü der Anwendung nennt keine Menüdatei. m_menuFilePath ist in seinem Konstruktor zu setzen.</translation>
    </message>
    <message>
        <source>The menu file %1 does not exist. Correct the path, or add the file to the resources of the plug-in.</source>
        <translation>Die Menüdatei %1 gibt es nicht. Der Pfad ist zu berichtigen oder die Datei in die Ressourcen des Plug-ins aufzunehmen.</translation>
    </message>
    <message>
        <source>The menu of the application cannot be shown.</source>
        <translation>Das Menü der Anwendung kann nicht gezeigt werden.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::Notices</name>
    <message>
        <source>The application fails again and again; further faults are only counted.</source>
        <translation>Die Anwendung schlägt immer wieder fehl; weitere Fehler werden nur noch gezählt.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::PdfPrinter</name>
    <message>
        <source>PDF file %1</source>
        <translation>PDF-Datei %1</translation>
    </message>
    <message>
        <source>The PDF file %1 cannot be written: %2. Check the path, its permissions and the free space, then repeat the print-out.</source>
        <translation>Die PDF-Datei %1 kann nicht geschrieben werden: %2. Prüfen Sie den Pfad, seine Rechte und den freien Platz und wiederholen Sie dann den Druck.</translation>
    </message>
    <message>
        <source>Print-out</source>
        <translation>Ausdruck</translation>
    </message>
    <message>
        <source>Page %1 of %2</source>
        <translation>Seite %1 von %2</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::PluginFaults</name>
    <message>
        <source>The terminal ended unexpectedly while the application &quot;%1&quot; was at work. It was not started again; to start it, choose it from the list of applications.</source>
        <translation>Das Terminal wurde unerwartet beendet, während die Anwendung &quot;%1&quot; lief. Sie wurde nicht wieder gestartet; zum Starten wählen Sie sie in der Liste der Anwendungen.</translation>
    </message>
    <message>
        <source>The application &quot;%1&quot;, which is closed, failed: %2</source>
        <translation>Die geschlossene Anwendung &quot;%1&quot; ist fehlgeschlagen: %2</translation>
    </message>
    <message>
        <source>The application &quot;%1&quot; blocked the terminal for %2 s (%3).</source>
        <translation>Die Anwendung &quot;%1&quot; hat das Terminal %2 s lang blockiert (%3).</translation>
    </message>
    <message>
        <source>The application &quot;%1&quot; is closed, but of it still works: %2.</source>
        <translation>Die Anwendung &quot;%1&quot; ist geschlossen, aber von ihr arbeitet noch: %2.</translation>
    </message>
    <message>
        <source>An application asked the terminal to end, which only a person can do.</source>
        <translation>Eine Anwendung wollte das Terminal beenden; das kann nur ein Mensch.</translation>
    </message>
    <message>
        <source>The application &quot;%1&quot; asked the terminal to end, which only a person can do.</source>
        <translation>Die Anwendung &quot;%1&quot; wollte das Terminal beenden; das kann nur ein Mensch.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::PluginLoader</name>
    <message>
        <source>there is no such file</source>
        <translation>diese Datei gibt es nicht</translation>
    </message>
    <message>
        <source>Check the path.</source>
        <translation>Prüfen Sie den Pfad.</translation>
    </message>
    <message>
        <source>this is a folder</source>
        <translation>dies ist ein Ordner</translation>
    </message>
    <message>
        <source>Name a plug-in file, or load all plug-ins of the folder with --plugin-dir.</source>
        <translation>Nennen Sie eine Plug-in-Datei, oder laden Sie mit --plugin-dir alle Plug-ins des Ordners.</translation>
    </message>
    <message>
        <source>this is no regular file</source>
        <translation>dies ist keine gewöhnliche Datei</translation>
    </message>
    <message>
        <source>Name a plug-in file.</source>
        <translation>Nennen Sie eine Plug-in-Datei.</translation>
    </message>
    <message>
        <source>it cannot be read</source>
        <translation>sie kann nicht gelesen werden</translation>
    </message>
    <message>
        <source>Check its permissions.</source>
        <translation>Prüfen Sie die Zugriffsrechte.</translation>
    </message>
    <message>
        <source>it cannot be read: %1</source>
        <translation>sie kann nicht gelesen werden: %1</translation>
    </message>
    <message>
        <source>Check its permissions and the medium.</source>
        <translation>Prüfen Sie die Zugriffsrechte und den Datenträger.</translation>
    </message>
    <message>
        <source>the file is empty</source>
        <translation>die Datei ist leer</translation>
    </message>
    <message>
        <source>Build or copy it again.</source>
        <translation>Bauen oder kopieren Sie sie noch einmal.</translation>
    </message>
    <message>
        <source>it is no shared library: it does not begin as an ELF file does</source>
        <translation>sie ist keine Programmbibliothek: sie beginnt nicht wie eine ELF-Datei</translation>
    </message>
    <message>
        <source>Name the file that the build of the plug-in makes (.so).</source>
        <translation>Nennen Sie die Datei, die beim Bauen des Plug-ins entsteht (.so).</translation>
    </message>
    <message>
        <source>the file is cut off: %1</source>
        <translation>die Datei ist abgeschnitten: %1</translation>
    </message>
    <message>
        <source>the file is damaged: %1</source>
        <translation>die Datei ist beschädigt: %1</translation>
    </message>
    <message>
        <source>it was built for %1, this terminal runs on %2</source>
        <translation>sie wurde für %1 gebaut, dieses Terminal läuft auf %2</translation>
    </message>
    <message>
        <source>Build the plug-in for %1.</source>
        <translation>Bauen Sie das Plug-in für %1.</translation>
    </message>
    <message>
        <source>it is no shared library but an ELF file of another kind (%1)</source>
        <translation>sie ist keine Programmbibliothek, sondern eine ELF-Datei anderer Art (%1)</translation>
    </message>
    <message>
        <source>Build the plug-in as a module library; brimvale_add_plugin() does.</source>
        <translation>Bauen Sie das Plug-in als Modulbibliothek; brimvale_add_plugin() tut das.</translation>
    </message>
    <message>
        <source>it carries no metadata of a Qt plug-in</source>
        <translation>sie trägt keine Metadaten eines Qt-Plug-ins</translation>
    </message>
    <message>
        <source>Put Q_PLUGIN_METADATA(IID &quot;%1&quot; FILE &quot;….json&quot;) into the class of the plug-in and let moc process its header.</source>
        <translation>Setzen Sie Q_PLUGIN_METADATA(IID &quot;%1&quot; FILE &quot;….json&quot;) in die Klasse des Plug-ins, und lassen Sie moc ihren Header verarbeiten.</translation>
    </message>
    <message>
        <source>it is a plug-in of another kind: its identifier is &quot;%1&quot;, this terminal loads &quot;%2&quot;</source>
        <translation>sie ist ein Plug-in anderer Art: ihre Kennung ist &quot;%1&quot;, dieses Terminal lädt &quot;%2&quot;</translation>
    </message>
    <message>
        <source>Correct the IID of Q_PLUGIN_METADATA, or take the file out of the folder.</source>
        <translation>Berichtigen Sie die IID in Q_PLUGIN_METADATA, oder nehmen Sie die Datei aus dem Ordner.</translation>
    </message>
    <message>
        <source>it was built with Qt %1, this terminal runs on Qt %2</source>
        <translation>sie wurde mit Qt %1 gebaut, dieses Terminal läuft mit Qt %2</translation>
    </message>
    <message>
        <source>Build the plug-in with Qt %1.%2 or an older Qt %1.</source>
        <translation>Bauen Sie das Plug-in mit Qt %1.%2 oder einem älteren Qt %1.</translation>
    </message>
    <message>
        <source>its code threw while it was loaded: %1</source>
        <translation>ihr Code warf beim Laden eine Ausnahme: %1</translation>
    </message>
    <message>
        <source>Let no exception out of the initialisation of static objects.</source>
        <translation>Lassen Sie keine Ausnahme aus der Initialisierung statischer Objekte heraus.</translation>
    </message>
    <message>
        <source>it needs the library %1, which is not there (%2)</source>
        <translation>sie braucht die Bibliothek %1, die fehlt (%2)</translation>
    </message>
    <message>
        <source>Install %1, or name its folder in LD_LIBRARY_PATH or in the RPATH of the plug-in.</source>
        <translation>Installieren Sie %1, oder nennen Sie ihren Ordner in LD_LIBRARY_PATH oder im RPATH des Plug-ins.</translation>
    </message>
    <message>
        <source>it needs version %1 of %2, and the one on this machine does not have it</source>
        <translation>sie braucht die Version %1 von %2, und die auf dieser Maschine hat sie nicht</translation>
    </message>
    <message>
        <source>Build the plug-in with the versions of the libraries that this machine has; its Qt is %1.</source>
        <translation>Bauen Sie das Plug-in mit den Bibliotheken, die diese Maschine hat; ihr Qt ist %1.</translation>
    </message>
    <message>
        <source> (version %1)</source>
        <translation> (Version %1)</translation>
    </message>
    <message>
        <source>the symbol %1 is not defined anywhere</source>
        <translation>das Symbol %1 ist nirgends definiert</translation>
    </message>
    <message>
        <source>Define it in the plug-in or link the library that does, and link with -Wl,--no-undefined: the linker then finds the error. If the symbol belongs to Brimvale, the plug-in was built with another version of the SDK than this terminal&apos;s.</source>
        <translation>Definieren Sie es im Plug-in oder binden Sie die Bibliothek, die es hat, und binden Sie mit -Wl,--no-undefined: Dann findet schon der Linker den Fehler. Gehört das Symbol zu Brimvale, so wurde das Plug-in mit einer anderen SDK-Version gebaut als der dieses Terminals.</translation>
    </message>
    <message>
        <source>See the text of the dynamic loader.</source>
        <translation>Siehe den Text des dynamischen Laders.</translation>
    </message>
    <message>
        <source>the constructor of the plug-in threw %1</source>
        <translation>der Konstruktor des Plug-ins warf %1</translation>
    </message>
    <message>
        <source>Let no exception out of the constructor; what can fail belongs into PreInitPlugin(), which may return false.</source>
        <translation>Lassen Sie keine Ausnahme aus dem Konstruktor heraus; was fehlschlagen kann, gehört in PreInitPlugin(), das false liefern darf.</translation>
    </message>
    <message>
        <source>no object was made: %1</source>
        <translation>es entstand kein Objekt: %1</translation>
    </message>
    <message>
        <source>Put Q_PLUGIN_METADATA into exactly one class, which can be constructed without arguments.</source>
        <translation>Setzen Sie Q_PLUGIN_METADATA in genau eine Klasse, die sich ohne Argumente erzeugen lässt.</translation>
    </message>
    <message>
        <source>its class %1 has not the interface IPlugin</source>
        <translation>ihre Klasse %1 hat die Schnittstelle IPlugin nicht</translation>
    </message>
    <message>
        <source>Derive the class from Brimvale::PluginBase, with Q_OBJECT.</source>
        <translation>Leiten Sie die Klasse von Brimvale::PluginBase ab, mit Q_OBJECT.</translation>
    </message>
    <message>
        <source>folder</source>
        <translation>Ordner</translation>
    </message>
    <message>
        <source>file</source>
        <translation>Datei</translation>
    </message>
    <message>
        <source>format</source>
        <translation>Format</translation>
    </message>
    <message>
        <source>processor</source>
        <translation>Prozessor</translation>
    </message>
    <message>
        <source>metadata</source>
        <translation>Metadaten</translation>
    </message>
    <message>
        <source>identifier</source>
        <translation>Kennung</translation>
    </message>
    <message>
        <source>Qt version</source>
        <translation>Qt-Version</translation>
    </message>
    <message>
        <source>library</source>
        <translation>Bibliothek</translation>
    </message>
    <message>
        <source>instance</source>
        <translation>Instanz</translation>
    </message>
    <message>
        <source>interface</source>
        <translation>Schnittstelle</translation>
    </message>
    <message>
        <source>initialisation</source>
        <translation>Initialisierung</translation>
    </message>
    <message>
        <source>loaded</source>
        <translation>geladen</translation>
    </message>
    <message>
        <source>No plug-ins were loaded from %1: %2. %3</source>
        <translation>Aus %1 wurden keine Plug-ins geladen: %2. %3</translation>
    </message>
    <message>
        <source>Plug-in %1 was not loaded (%2): %3. %4</source>
        <translation>Das Plug-in %1 wurde nicht geladen (%2): %3. %4</translation>
    </message>
    <message>
        <source>there is no such folder</source>
        <translation>diesen Ordner gibt es nicht</translation>
    </message>
    <message>
        <source>this is no folder</source>
        <translation>dies ist kein Ordner</translation>
    </message>
    <message>
        <source>Load a single file with --plugin.</source>
        <translation>Eine einzelne Datei lädt --plugin.</translation>
    </message>
    <message>
        <source>it has no plug-in (*.so)</source>
        <translation>er enthält kein Plug-in (*.so)</translation>
    </message>
    <message>
        <source>Name the folder into which the plug-ins are built.</source>
        <translation>Nennen Sie den Ordner, in den die Plug-ins gebaut werden.</translation>
    </message>
    <message>
        <source>it was built with version %1 of the SDK, this terminal has version %2</source>
        <translation>es wurde mit Version %1 des SDK gebaut, dieses Terminal hat Version %2</translation>
    </message>
    <message>
        <source>Build the plug-in with version %1.%2 of the SDK or an older %1, or bring the terminal up to date.</source>
        <translation>Bauen Sie das Plug-in mit Version %1.%2 des SDK oder einer älteren %1, oder bringen Sie das Terminal auf den neuesten Stand.</translation>
    </message>
    <message>
        <source>SDK version</source>
        <translation>SDK-Version</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::PluginManager</name>
    <message>
        <source>it is loaded already</source>
        <translation>sie ist schon geladen</translation>
    </message>
    <message>
        <source>Name every plug-in once.</source>
        <translation>Nennen Sie jedes Plug-in einmal.</translation>
    </message>
    <message>
        <source>InitPlugin() threw %1</source>
        <translation>InitPlugin() warf %1</translation>
    </message>
    <message>
        <source>Catch the exception in the plug-in and return false from PreInitPlugin() or PostInitPlugin().</source>
        <translation>Fangen Sie die Ausnahme im Plug-in, und liefern Sie false aus PreInitPlugin() oder PostInitPlugin().</translation>
    </message>
    <message>
        <source>InitPlugin() returned false: the plug-in refuses to be initialised</source>
        <translation>InitPlugin() lieferte false: Das Plug-in lässt sich nicht initialisieren</translation>
    </message>
    <message>
        <source>See why its PreInitPlugin() or PostInitPlugin() returns false.</source>
        <translation>Sehen Sie nach, warum sein PreInitPlugin() oder PostInitPlugin() false liefert.</translation>
    </message>
    <message>
        <source>GetId() threw %1</source>
        <translation>GetId() warf %1</translation>
    </message>
    <message>
        <source>Let no exception out of FillPluginId() and GetPluginName().</source>
        <translation>Lassen Sie keine Ausnahme aus FillPluginId() und GetPluginName() heraus.</translation>
    </message>
    <message>
        <source>its identifier &quot;%1&quot; is that of %2, which was loaded before</source>
        <translation>ihre Kennung &quot;%1&quot; ist die von %2, das vorher geladen wurde</translation>
    </message>
    <message>
        <source>Give the plug-in an identifier of its own in FillPluginId(), or load only one of the two.</source>
        <translation>Geben Sie dem Plug-in in FillPluginId() eine eigene Kennung, oder laden Sie nur eines der beiden.</translation>
    </message>
    <message>
        <source>TranslateWarnInfo() threw %1</source>
        <translation>TranslateWarnInfo() warf %1</translation>
    </message>
    <message>
        <source>Let no exception out of it.</source>
        <translation>Lassen Sie keine Ausnahme heraus.</translation>
    </message>
    <message>
        <source>StartPlugin() threw %1</source>
        <translation>StartPlugin() warf %1</translation>
    </message>
    <message>
        <source>Catch the exception in the plug-in and return false from PreStartPlugin() or PostStartPlugin().</source>
        <translation>Fangen Sie die Ausnahme im Plug-in, und liefern Sie false aus PreStartPlugin() oder PostStartPlugin().</translation>
    </message>
    <message>
        <source>StartPlugin() returned false: the plug-in refuses to start</source>
        <translation>StartPlugin() lieferte false: Das Plug-in startet nicht</translation>
    </message>
    <message>
        <source>See why its PreStartPlugin() or PostStartPlugin() returns false.</source>
        <translation>Sehen Sie nach, warum sein PreStartPlugin() oder PostStartPlugin() false liefert.</translation>
    </message>
    <message>
        <source>PostStartAddons() threw %1</source>
        <translation>PostStartAddons() warf %1</translation>
    </message>
    <message>
        <source>Let no exception out of PostInitPluginAndAddons().</source>
        <translation>Lassen Sie keine Ausnahme aus PostInitPluginAndAddons() heraus.</translation>
    </message>
    <message>
        <source>ClosePlugin() threw %1</source>
        <translation>ClosePlugin() warf %1</translation>
    </message>
    <message>
        <source>Let no exception out of PreClosePlugin().</source>
        <translation>Lassen Sie keine Ausnahme aus PreClosePlugin() heraus.</translation>
    </message>
    <message>
        <source>ClosePlugin() returned false</source>
        <translation>ClosePlugin() lieferte false</translation>
    </message>
    <message>
        <source>A plug-in cannot refuse to close: return true.</source>
        <translation>Ein Plug-in kann das Schließen nicht verweigern: Liefern Sie true.</translation>
    </message>
    <message>
        <source>it has not told within %1 s that it has closed</source>
        <translation>es hat nicht innerhalb von %1 s gemeldet, dass es geschlossen ist</translation>
    </message>
    <message>
        <source>Do not override ClosePlugin(), or call PluginBase::ClosePlugin() from it, and do not block the event loop.</source>
        <translation>Überschreiben Sie ClosePlugin() nicht, oder rufen Sie darin PluginBase::ClosePlugin(), und blockieren Sie die Ereignisschleife nicht.</translation>
    </message>
    <message>
        <source>The plug-in &quot;%1&quot; (%2) was taken out: %3. %4</source>
        <translation>Das Plug-in &quot;%1&quot; (%2) wurde herausgenommen: %3. %4</translation>
    </message>
    <message>
        <source>the terminal ended unexpectedly when it was loaded the last time</source>
        <translation>das Terminal wurde unerwartet beendet, als es zuletzt geladen wurde</translation>
    </message>
    <message>
        <source>Mend it, or start the terminal again to try once more.</source>
        <translation>Beheben Sie den Fehler, oder starten Sie das Terminal für einen weiteren Versuch neu.</translation>
    </message>
    <message>
        <source>it has deleted its own object</source>
        <translation>es hat sein eigenes Objekt gelöscht</translation>
    </message>
    <message>
        <source>Leave that to the terminal, which deletes it at its end.</source>
        <translation>Überlassen Sie das dem Terminal, das es an seinem Ende löscht.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::PluginMenu</name>
    <message>
        <source>The menu of the application &quot;%1&quot; failed in %2(): %3</source>
        <translation>Das Menü der Anwendung „%1“ ist in %2() fehlgeschlagen: %3</translation>
    </message>
    <message>
        <source>On</source>
        <translation>Ein</translation>
    </message>
    <message>
        <source>Off</source>
        <translation>Aus</translation>
    </message>
    <message>
        <source>This is no number.</source>
        <translation>Das ist keine Zahl.</translation>
    </message>
    <message>
        <source>Enter a whole number.</source>
        <translation>Bitte eine ganze Zahl eingeben.</translation>
    </message>
    <message>
        <source>Decimals: at most %1.</source>
        <translation>Nachkommastellen: höchstens %1.</translation>
    </message>
    <message>
        <source>Enter a number from %1 to %2.</source>
        <translation>Bitte eine Zahl von %1 bis %2 eingeben.</translation>
    </message>
    <message>
        <source>The number is too large.</source>
        <translation>Die Zahl ist zu groß.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::PluginProfiles</name>
    <message>
        <source>The application failed in %1() while it was given its settings: %2</source>
        <translation>Die Anwendung ist in %1() fehlgeschlagen, während sie ihre Einstellungen bekam: %2</translation>
    </message>
    <message>
        <source>The stored value &quot;%1&quot; of the setting &quot;%2&quot; (%3, item %4) cannot be used; the default holds. Set it again.</source>
        <translation>Der gespeicherte Wert „%1“ der Einstellung „%2“ (%3, Eintrag %4) ist nicht verwendbar; es gilt die Vorgabe. Bitte neu einstellen.</translation>
    </message>
    <message>
        <source>The setting holds until the terminal ends, but was not stored. %1</source>
        <translation>Die Einstellung gilt bis zum Ende des Terminals, wurde aber nicht gespeichert. %1</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::PrintJournal</name>
    <message>
        <source>The print queue cannot be kept in %1: %2. Check the path, its permissions and the free space.</source>
        <translation>Die Druckwarteschlange kann nicht in %1 aufbewahrt werden: %2. Prüfen Sie den Pfad, seine Rechte und den freien Platz.</translation>
    </message>
    <message>
        <source>%1 holds no print queue. It was renamed to %2, and the queue begins empty.</source>
        <translation>%1 enthält keine Druckwarteschlange. Die Datei wurde in %2 umbenannt, und die Warteschlange beginnt leer.</translation>
    </message>
    <message>
        <source>Another terminal keeps its print queue in %1: what this one cannot print is lost when it ends. Give it settings of its own with --settings FILE.</source>
        <translation>Ein anderes Terminal hält seine Druckaufträge in %1: was dieses nicht drucken kann, ist verloren, wenn es endet. Geben Sie ihm mit --settings DATEI eigene Einstellungen.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::PrintQueue</name>
    <message>
        <source>The terminal was switched off before it was printed.</source>
        <translation>Das Terminal wurde ausgeschaltet, bevor gedruckt war.</translation>
    </message>
    <message>
        <source>The printer was taken away. Repeat the print-out on the new one.</source>
        <translation>Der Drucker wurde entfernt. Wiederholen Sie den Druck auf dem neuen.</translation>
    </message>
    <message>
        <source>The print-out is empty.</source>
        <translation>Der Ausdruck ist leer.</translation>
    </message>
    <message>
        <source>There is no output for SICS answers. Start the terminal with --sics PORT.</source>
        <translation>Es gibt keinen Ausgang für SICS-Antworten. Starten Sie das Terminal mit --sics PORT.</translation>
    </message>
    <message>
        <source>There is no printer. Start the terminal with --printer roll, for example.</source>
        <translation>Es gibt keinen Drucker. Starten Sie das Terminal zum Beispiel mit --printer roll.</translation>
    </message>
    <message>
        <source>%1 print-outs wait already. Repeat or delete them first.</source>
        <translation>Es warten schon %1 Ausdrucke. Wiederholen oder löschen Sie diese zuerst.</translation>
    </message>
    <message>
        <source>The printer is out of paper. Put in paper, then repeat the print-out.</source>
        <translation>Der Drucker hat kein Papier. Legen Sie Papier ein und wiederholen Sie dann den Druck.</translation>
    </message>
    <message>
        <source>The printer is offline. Switch it on and check its cable, then repeat the print-out.</source>
        <translation>Der Drucker ist offline. Schalten Sie ihn ein, prüfen Sie sein Kabel und wiederholen Sie dann den Druck.</translation>
    </message>
    <message>
        <source>Print-out</source>
        <translation>Ausdruck</translation>
    </message>
    <message>
        <source>%1 is not printed: %2</source>
        <translation>%1 ist nicht gedruckt: %2</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::PrinterModel</name>
    <message>
        <source>Ready</source>
        <translation>Bereit</translation>
    </message>
    <message>
        <source>Printing</source>
        <translation>Druckt</translation>
    </message>
    <message>
        <source>Stopped</source>
        <translation>Angehalten</translation>
    </message>
    <message>
        <source>Out of paper</source>
        <translation>Kein Papier</translation>
    </message>
    <message>
        <source>Offline</source>
        <translation>Offline</translation>
    </message>
    <message>
        <source>No printer</source>
        <translation>Kein Drucker</translation>
    </message>
    <message>
        <source>Waits</source>
        <translation>Wartet</translation>
    </message>
    <message>
        <source>Printing, %1 of %2</source>
        <translation>Druckt, %1 von %2</translation>
    </message>
    <message>
        <source>%1 of %2 printed. %3</source>
        <translation>%1 von %2 gedruckt. %3</translation>
    </message>
    <message>
        <source>Print-out</source>
        <translation>Ausdruck</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::Protocol</name>
    <message>
        <source>Print key</source>
        <translation>Drucktaste</translation>
    </message>
    <message>
        <source>A trigger of the application could not be asked: %1</source>
        <translation>Ein Auslöser der Anwendung konnte nicht befragt werden: %1</translation>
    </message>
    <message>
        <source>Single weighing</source>
        <translation>Einzelwägung</translation>
    </message>
    <message>
        <source>Series</source>
        <translation>Serie</translation>
    </message>
    <message>
        <source>Summary</source>
        <translation>Zusammenfassung</translation>
    </message>
    <message>
        <source>Calibration</source>
        <translation>Kalibrierung</translation>
    </message>
    <message>
        <source>Guided procedure</source>
        <translation>Geführter Ablauf</translation>
    </message>
    <message>
        <source>Everything</source>
        <translation>Alles</translation>
    </message>
    <message>
        <source>Header</source>
        <translation>Kopf</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Werte</translation>
    </message>
    <message>
        <source>Footer</source>
        <translation>Fuß</translation>
    </message>
    <message>
        <source>SICS answer</source>
        <translation>SICS-Antwort</translation>
    </message>
    <message>
        <source>a protocol is being printed already.</source>
        <translation>Es wird bereits ein Protokoll gedruckt.</translation>
    </message>
    <message>
        <source>there is no printer.</source>
        <translation>Es gibt keinen Drucker.</translation>
    </message>
    <message>
        <source>no items are chosen for it. Choose them in the protocol menu.</source>
        <translation>Dafür sind keine Einträge gewählt. Wählen Sie sie im Protokollmenü.</translation>
    </message>
    <message>
        <source>Nothing was printed: %1</source>
        <translation>Es wurde nichts gedruckt: %1</translation>
    </message>
    <message>
        <source>none of the chosen items is offered for &quot;%1&quot;, &quot;%2&quot;. Choose others in the protocol menu.</source>
        <translation>Keiner der gewählten Einträge wird für &quot;%1&quot;, &quot;%2&quot; angeboten. Wählen Sie andere im Protokollmenü.</translation>
    </message>
    <message>
        <source>the chosen items are empty.</source>
        <translation>Die gewählten Einträge sind leer.</translation>
    </message>
    <message>
        <source>The protocol was not printed: %1</source>
        <translation>Das Protokoll wurde nicht gedruckt: %1</translation>
    </message>
    <message>
        <source>A trigger of the application failed: %1</source>
        <translation>Ein Auslöser der Anwendung ist fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no value yet.</source>
        <translation>&quot;%1&quot; hat noch keinen Wert.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::ProtocolMenu</name>
    <message>
        <source>Protocol</source>
        <translation>Protokoll</translation>
    </message>
    <message>
        <source>Kind</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Part</source>
        <translation>Teil</translation>
    </message>
    <message>
        <source>Printed at</source>
        <translation>Druckt bei</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::ProtocolPrinter</name>
    <message>
        <source>A print item of the application could not be asked: %1</source>
        <translation>Ein Druckeintrag der Anwendung konnte nicht befragt werden: %1</translation>
    </message>
    <message>
        <source>&quot;%1&quot; was withdrawn while the protocol was printed.</source>
        <translation>&quot;%1&quot; wurde zurückgezogen, während das Protokoll gedruckt wurde.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; failed: %2</source>
        <translation>&quot;%1&quot; ist fehlgeschlagen: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; could not be printed.</source>
        <translation>&quot;%1&quot; konnte nicht gedruckt werden.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::RegisterValueProvider</name>
    <message>
        <source>Unit %1 is not available</source>
        <translation>Einheit %1 ist nicht verfügbar</translation>
    </message>
    <message>
        <source>Register %1 is not available</source>
        <translation>Register %1 ist nicht verfügbar</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::RollPrinter</name>
    <message>
        <source>Paper roll</source>
        <translation>Papierrolle</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::Scale</name>
    <message>
        <source>Overload</source>
        <translation>Überlast</translation>
    </message>
    <message>
        <source>Underload</source>
        <translation>Unterlast</translation>
    </message>
    <message>
        <source>Unreadable</source>
        <translation>Nicht lesbar</translation>
    </message>
    <message>
        <source>No connection</source>
        <translation>Keine Verbindung</translation>
    </message>
    <message>
        <source>There is no valid weight (%1).</source>
        <translation>Es liegt kein gültiges Gewicht vor (%1).</translation>
    </message>
    <message>
        <source>The weight is not stable: wait until it is.</source>
        <translation>Das Gewicht ist nicht stabil: Warten Sie, bis es stabil ist.</translation>
    </message>
    <message>
        <source>Zero can be set within %1 g of the zero at switch-on only: take the load off.</source>
        <translation>Null lässt sich nur innerhalb von %1 g um den Einschaltnullpunkt setzen: Nehmen Sie die Last ab.</translation>
    </message>
    <message>
        <source>The gross weight is below zero: set zero first.</source>
        <translation>Das Bruttogewicht liegt unter null: Setzen Sie erst null.</translation>
    </message>
    <message>
        <source>The preset tare is not a number.</source>
        <translation>Die Taravorgabe ist keine Zahl.</translation>
    </message>
    <message>
        <source>The preset tare is below zero: give 0 or more.</source>
        <translation>Die Taravorgabe liegt unter null: Geben Sie 0 oder mehr an.</translation>
    </message>
    <message>
        <source>The preset tare is above %1 g: give less.</source>
        <translation>Die Taravorgabe liegt über %1 g: Geben Sie weniger an.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::SerialSource</name>
    <message>
        <source>Scale at %1, %2 baud</source>
        <translation>Waage an %1, %2 Baud</translation>
    </message>
    <message>
        <source>this is a folder and no serial port</source>
        <translation>das ist ein Ordner und keine serielle Schnittstelle</translation>
    </message>
    <message>
        <source>this is no serial port</source>
        <translation>das ist keine serielle Schnittstelle</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::Session</name>
    <message>
        <source>There is no plug-in &quot;%1&quot; to start. Loaded are: %2.</source>
        <translation>Es gibt kein Plug-in &quot;%1&quot; zu starten. Geladen sind: %2.</translation>
    </message>
    <message>
        <source>none</source>
        <translation>keine</translation>
    </message>
    <message>
        <source>Sent: %1</source>
        <translation>Gesendet: %1</translation>
    </message>
    <message>
        <source>Not sent: %1</source>
        <translation>Nicht gesendet: %1</translation>
    </message>
    <message>
        <source>Max %1</source>
        <translation>Max %1</translation>
    </message>
    <message>
        <source>Simulated scale</source>
        <translation>Simulierte Waage</translation>
    </message>
    <message>
        <source>Zero</source>
        <translation>Null</translation>
    </message>
    <message>
        <source>Tare</source>
        <translation>Tara</translation>
    </message>
    <message>
        <source>Clear tare</source>
        <translation>Tara löschen</translation>
    </message>
    <message>
        <source>NET</source>
        <translation>NETTO</translation>
    </message>
    <message>
        <source>PT</source>
        <translation>PT</translation>
    </message>
    <message>
        <source>Not offered: %1</source>
        <translation>Nicht angeboten: %1</translation>
    </message>
    <message>
        <source>Print-outs that were still waiting for the printer and are lost: %1. Wait for the printer before the end, or keep them with --settings FILE.</source>
        <translation>Ausdrucke, die noch auf den Drucker warteten und verloren sind: %1. Warten Sie vor dem Ende auf den Drucker, oder bewahren Sie sie mit --settings DATEI auf.</translation>
    </message>
    <message>
        <source>Repeat print</source>
        <translation>Druck wiederholen</translation>
    </message>
    <message>
        <source>%1: there is no unit &quot;%2&quot;; there are: %3</source>
        <translation>%1: Es gibt keine Einheit „%2“; es gibt: %3</translation>
    </message>
    <message>
        <source>%1: the automatic transfer has no mode &quot;%2&quot;; there are: %3</source>
        <translation>%1: Die automatische Übernahme hat keine Betriebsart „%2“; es gibt: %3</translation>
    </message>
    <message>
        <source>None was set yet</source>
        <translation>Noch keine gesetzt</translation>
    </message>
    <message>
        <source>Standard</source>
        <translation>Standard</translation>
    </message>
    <message>
        <source>MSW</source>
        <translation>MSW</translation>
    </message>
    <message>
        <source>The user&apos;s own</source>
        <translation>Eigene des Benutzers</translation>
    </message>
    <message>
        <source>Terminal</source>
        <translation>Terminal</translation>
    </message>
    <message>
        <source>± %1, fixed</source>
        <translation>± %1, fest</translation>
    </message>
    <message>
        <source>± %1</source>
        <translation>± %1</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Einheit</translation>
    </message>
    <message>
        <source>The terminal leaves it to the application</source>
        <translation>Das Terminal überlässt es der Anwendung</translation>
    </message>
    <message>
        <source>Print-outs that were not printed: %1. Repeat them with the key on the status line, or delete them on the bench.</source>
        <translation>Nicht gedruckte Ausdrucke: %1. Wiederholen Sie sie mit der Taste auf der Statuszeile, oder löschen Sie sie am Prüfplatz.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::SettingsModel</name>
    <message>
        <source>The application has no settings.</source>
        <translation>Die Anwendung hat keine Einstellungen.</translation>
    </message>
    <message>
        <source>The settings are not open.</source>
        <translation>Die Einstellungen sind nicht geöffnet.</translation>
    </message>
    <message>
        <source>There is no setting %1 now.</source>
        <translation>Eine Einstellung %1 gibt es jetzt nicht.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; cannot be changed now.</source>
        <translation>„%1“ lässt sich jetzt nicht ändern.</translation>
    </message>
    <message>
        <source>%1 to %2</source>
        <translation>%1 bis %2</translation>
    </message>
    <message>
        <source>The help text %1 cannot be read.</source>
        <translation>Der Hilfetext %1 kann nicht gelesen werden.</translation>
    </message>
    <message>
        <source>Nothing is asked for.</source>
        <translation>Es wird nach nichts gefragt.</translation>
    </message>
    <message>
        <source>Characters: at most %1.</source>
        <translation>Zeichen: höchstens %1.</translation>
    </message>
    <message>
        <source>There is no such entry.</source>
        <translation>Diesen Eintrag gibt es nicht.</translation>
    </message>
    <message>
        <source>This value is not allowed.</source>
        <translation>Dieser Wert ist nicht zulässig.</translation>
    </message>
    <message>
        <source>The application has refused the value.</source>
        <translation>Die Anwendung hat den Wert abgelehnt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has failed.</source>
        <translation>„%1“ ist fehlgeschlagen.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has no value.</source>
        <translation>„%1“ hat keinen Wert.</translation>
    </message>
    <message>
        <source>A yes/no is set to on or off.</source>
        <translation>Ein Schalter wird auf on oder off gestellt.</translation>
    </message>
    <message>
        <source>There is no entry &quot;%1&quot;; there are: %2.</source>
        <translation>Einen Eintrag „%1“ gibt es nicht; es gibt: %2.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::SicsPrinter</name>
    <message>
        <source>SICS output</source>
        <translation>SICS-Ausgang</translation>
    </message>
    <message>
        <source>No computer is connected to the SICS port. Connect one, then repeat the print-out.</source>
        <translation>Mit dem SICS-Anschluss ist kein Rechner verbunden. Verbinden Sie einen und wiederholen Sie dann den Druck.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::SicsServer</name>
    <message>
        <source>another program uses this port; end it or choose another port</source>
        <translation>ein anderes Programm benutzt diesen Port; beenden Sie es oder wählen Sie einen anderen Port</translation>
    </message>
    <message>
        <source>ports below %1 are for privileged programs; choose one from %1 on</source>
        <translation>Ports unter %1 sind privilegierten Programmen vorbehalten; wählen Sie einen ab %1</translation>
    </message>
    <message>
        <source>the system forbids it; choose another port</source>
        <translation>das System erlaubt es nicht; wählen Sie einen anderen Port</translation>
    </message>
    <message>
        <source>this computer does not have this address; leave it out to serve this computer only</source>
        <translation>dieser Rechner hat diese Adresse nicht; lassen Sie sie weg, um nur diesen Rechner zu bedienen</translation>
    </message>
    <message>
        <source>The SICS server cannot listen on %1: %2.</source>
        <translation>Der SICS-Server kann an %1 nicht lauschen: %2.</translation>
    </message>
    <message>
        <source>The SICS client %1 was refused: there are %2 already.</source>
        <translation>Der SICS-Teilnehmer %1 wurde abgewiesen: Es sind schon %2 verbunden.</translation>
    </message>
    <message>
        <source>it sends more than a client may</source>
        <translation>er sendet mehr, als ein Teilnehmer darf</translation>
    </message>
    <message>
        <source>it does not read its answers</source>
        <translation>er liest seine Antworten nicht</translation>
    </message>
    <message>
        <source>The SICS client %1 was disconnected: %2.</source>
        <translation>Der SICS-Teilnehmer %1 wurde getrennt: %2.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::SimulatedSource</name>
    <message>
        <source>Simulated scale, %1 g, readability %2 g</source>
        <translation>Simulierte Waage, %1 g, Ablesbarkeit %2 g</translation>
    </message>
    <message>
        <source>The cable is plugged in.</source>
        <translation>Das Kabel ist eingesteckt.</translation>
    </message>
    <message>
        <source>The cable is out.</source>
        <translation>Das Kabel ist gezogen.</translation>
    </message>
    <message>
        <source>More than %1 g.</source>
        <translation>Mehr als %1 g.</translation>
    </message>
    <message>
        <source>The load is below zero.</source>
        <translation>Die Last liegt unter null.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::StoredParameters</name>
    <message>
        <source>The stored parameters in %1 are not a valid INI file. Correct it or move it away.</source>
        <translation>Die gespeicherten Parameter in %1 sind keine gültige INI-Datei. Berichtigen oder verschieben Sie sie.</translation>
    </message>
    <message>
        <source>The stored parameters in %1 cannot be read or written. Check the permissions of the file and its folder.</source>
        <translation>Die gespeicherten Parameter in %1 können nicht gelesen oder geschrieben werden. Prüfen Sie die Zugriffsrechte der Datei und ihres Ordners.</translation>
    </message>
    <message>
        <source>The stored parameters in %1 have more than %2 bytes: this is no settings file of the terminal. Move it away.</source>
        <translation>Die gespeicherten Parameter in %1 haben mehr als %2 Bytes: Das ist keine Einstellungsdatei des Terminals. Verschieben Sie sie.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::TcpPrinter</name>
    <message>
        <source>Network printer %1</source>
        <translation>Netzwerkdrucker %1</translation>
    </message>
    <message>
        <source>The connection to the printer %1 is broken. Switch the printer on and check its cable, then repeat the print-out.</source>
        <translation>Die Verbindung zum Drucker %1 ist unterbrochen. Schalten Sie den Drucker ein, prüfen Sie sein Kabel und wiederholen Sie dann den Druck.</translation>
    </message>
    <message>
        <source>The printer %1 cannot be reached: %2. Switch the printer on, check its cable and the address, then repeat the print-out.</source>
        <translation>Der Drucker %1 ist nicht zu erreichen: %2. Schalten Sie den Drucker ein, prüfen Sie Kabel und Adresse und wiederholen Sie dann den Druck.</translation>
    </message>
    <message>
        <source>The connection to the printer %1 is broken: %2. Switch the printer on and check its cable, then repeat the print-out.</source>
        <translation>Die Verbindung zum Drucker %1 ist unterbrochen: %2. Schalten Sie den Drucker ein, prüfen Sie sein Kabel und wiederholen Sie dann den Druck.</translation>
    </message>
    <message>
        <source>The printer %1 does not answer. Switch the printer on, check its cable and the address, then repeat the print-out.</source>
        <translation>Der Drucker %1 antwortet nicht. Schalten Sie den Drucker ein, prüfen Sie Kabel und Adresse und wiederholen Sie dann den Druck.</translation>
    </message>
    <message>
        <source>The printer %1 takes no more data. Check its paper and that it is switched on, then repeat the print-out.</source>
        <translation>Der Drucker %1 nimmt keine Daten mehr an. Prüfen Sie das Papier und ob er eingeschaltet ist, und wiederholen Sie dann den Druck.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::TcpSource</name>
    <message>
        <source>Scale at %1, port %2</source>
        <translation>Waage an %1, Port %2</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::TerminalItems</name>
    <message>
        <source>Date</source>
        <translation>Datum</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Uhrzeit</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>Bediener</translation>
    </message>
    <message>
        <source>Serial number</source>
        <translation>Seriennummer</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::TraceSource</name>
    <message>
        <source>Recording %1</source>
        <translation>Aufzeichnung %1</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::TransferLog</name>
    <message>
        <source>standard output</source>
        <translation>Standardausgabe</translation>
    </message>
    <message>
        <source>The transfer log %1 cannot be written: %2. Check the path, its permissions and the free space.</source>
        <translation>Das Übertragungsprotokoll %1 kann nicht geschrieben werden: %2. Prüfen Sie den Pfad, die Zugriffsrechte und den freien Platz.</translation>
    </message>
    <message>
        <source>Lines that are kept and written with the next measurement: %1.</source>
        <translation>Zeilen, die aufbewahrt und mit der nächsten Messung geschrieben werden: %1.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::ViewHost</name>
    <message>
        <source>The application has published nothing under the name &quot;%1&quot;: its view model is null. CreateViewModel() must return an object.</source>
        <translation>Die Anwendung hat unter dem Namen &quot;%1&quot; nichts veröffentlicht: Ihr View-Model ist null. CreateViewModel() muss ein Objekt liefern.</translation>
    </message>
    <message>
        <source>The application names no screen. GetPluginScreen() must return the path of a QML file.</source>
        <translation>Die Anwendung nennt keinen Bildschirm. GetPluginScreen() muss den Pfad einer QML-Datei liefern.</translation>
    </message>
    <message>
        <source>The screen %1 of the application does not exist. Correct GetPluginScreen(), or add the file to the resources of the plug-in.</source>
        <translation>Den Bildschirm %1 der Anwendung gibt es nicht. Berichtigen Sie GetPluginScreen(), oder nehmen Sie die Datei in die Ressourcen des Plug-ins auf.</translation>
    </message>
    <message>
        <source>The screen of the application cannot be shown.</source>
        <translation>Der Bildschirm der Anwendung kann nicht gezeigt werden.</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::Weighing</name>
    <message>
        <source>There is no tare to clear.</source>
        <translation>Es gibt keine Tara zu löschen.</translation>
    </message>
    <message>
        <source>The application failed while it took in a new weight: %1</source>
        <translation>Die Anwendung ist bei der Aufnahme eines neuen Gewichts fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>The application failed while it took in a stable weight: %1</source>
        <translation>Die Anwendung ist bei der Aufnahme eines stabilen Gewichts fehlgeschlagen: %1</translation>
    </message>
</context>
<context>
    <name>Brimvale::Terminal::WorkflowRunner</name>
    <message>
        <source>A workflow is running already.</source>
        <translation>Es läuft bereits ein Ablauf.</translation>
    </message>
    <message>
        <source>The workflow has no steps.</source>
        <translation>Der Ablauf hat keine Schritte.</translation>
    </message>
    <message>
        <source>Step %1 of the workflow failed: %2</source>
        <translation>Schritt %1 des Ablaufs ist fehlgeschlagen: %2</translation>
    </message>
    <message>
        <source>Step %1 of the workflow is missing.</source>
        <translation>Schritt %1 des Ablaufs fehlt.</translation>
    </message>
    <message>
        <source>Step %1 of the workflow names the function &quot;%2&quot;, which the application does not offer.</source>
        <translation>Schritt %1 des Ablaufs nennt die Funktion „%2“, die die Anwendung nicht anbietet.</translation>
    </message>
    <message>
        <source>The function &quot;%1&quot; of the workflow has no signal workDone(QVariant).</source>
        <translation>Die Funktion „%1“ des Ablaufs hat kein Signal workDone(QVariant).</translation>
    </message>
    <message>
        <source>Step %1 of the workflow waits for a time, but its settings name none: a number of milliseconds up to 24 hours is needed.</source>
        <translation>Schritt %1 des Ablaufs wartet auf eine Zeit, aber seine Einstellungen nennen keine: Nötig ist eine Zahl von Millisekunden bis 24 Stunden.</translation>
    </message>
    <message>
        <source>Step %1 of the workflow is gone.</source>
        <translation>Schritt %1 des Ablaufs ist nicht mehr da.</translation>
    </message>
    <message>
        <source>The function &quot;%1&quot; of the workflow is not offered any more.</source>
        <translation>Die Funktion „%1“ des Ablaufs wird nicht mehr angeboten.</translation>
    </message>
    <message>
        <source>The function &quot;%1&quot; of the workflow is gone.</source>
        <translation>Die Funktion „%1“ des Ablaufs ist nicht mehr da.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; did not run: the application has no worker for it.</source>
        <translation>„%1“ lief nicht: Die Anwendung hat niemanden, der es ausführt.</translation>
    </message>
    <message>
        <source>&quot;%1&quot; has not finished after %2 s. It may still do so; otherwise repeat it or abort.</source>
        <translation>„%1“ ist nach %2 s nicht fertig. Das kann noch geschehen; sonst wiederholen oder abbrechen.</translation>
    </message>
    <message>
        <source>The workflow could not be reset: %1</source>
        <translation>Der Ablauf konnte nicht zurückgesetzt werden: %1</translation>
    </message>
    <message>
        <source>The application failed in its workflow: %1</source>
        <translation>Die Anwendung ist in ihrem Ablauf fehlgeschlagen: %1</translation>
    </message>
    <message>
        <source>Back</source>
        <translation>Zurück</translation>
    </message>
    <message>
        <source>Repeat</source>
        <translation>Wieder­holen</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Weiter</translation>
    </message>
    <message>
        <source>Abort</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>%1 in progress</source>
        <translation>%1 läuft</translation>
    </message>
    <message>
        <source>Waiting for a change of the load</source>
        <translation>Wartet auf eine Änderung der Last</translation>
    </message>
    <message>
        <source>Waiting for a stable weight</source>
        <translation>Wartet auf ein stabiles Gewicht</translation>
    </message>
    <message>
        <source>Goes on by itself</source>
        <translation>Geht von selbst weiter</translation>
    </message>
</context>
<context>
    <name>Brimvale::WarnInfo</name>
    <message>
        <source>Levelling required</source>
        <translation>Nivellierung erforderlich</translation>
    </message>
</context>
<context>
    <name>MainDisplay</name>
    <message>
        <source>No connection to the scale</source>
        <translation>Keine Verbindung zur Waage</translation>
    </message>
    <message>
        <source>NET</source>
        <translation>NETTO</translation>
    </message>
    <message>
        <source>PT</source>
        <translation>PT</translation>
    </message>
    <message>
        <source>COARSE</source>
        <translation>GROB</translation>
    </message>
</context>
<context>
    <name>NoticeBar</name>
    <message>
        <source>%1 (%2 times)</source>
        <translation>%1 (%2-mal)</translation>
    </message>
    <message>
        <source>Close it</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Keep running</source>
        <translation>Weiterlaufen lassen</translation>
    </message>
</context>
<context>
    <name>NumericDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>ProtocolMenu</name>
    <message>
        <source>There is nothing to print in this part.</source>
        <translation>In diesem Teil gibt es nichts zu drucken.</translation>
    </message>
    <message>
        <source>Kind of protocol</source>
        <translation>Art des Protokolls</translation>
    </message>
    <message>
        <source>Part of the print-out</source>
        <translation>Teil des Ausdrucks</translation>
    </message>
    <message>
        <source>Started by</source>
        <translation>Start durch</translation>
    </message>
    <message>
        <source>%1 of %2 chosen</source>
        <translation>%1 von %2 gewählt</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Enter name…</source>
        <translation>Name eingeben …</translation>
    </message>
    <message>
        <source>Operator</source>
        <translation>Bediener</translation>
    </message>
</context>
<context>
    <name>Readability</name>
    <message>
        <source>&quot;%1&quot; is not a readability: give 1, 2 or 5 times a power of ten in grams, from 0.0000001 to 50000, such as 0.1, 0.02 or 5.</source>
        <translation>&quot;%1&quot; ist keine Ablesbarkeit: Geben Sie das 1-, 2- oder 5-fache einer Zehnerpotenz in Gramm an, von 0.0000001 bis 50000, etwa 0.1, 0.02 oder 5.</translation>
    </message>
</context>
<context>
    <name>SettingsScreen</name>
    <message>
        <source>There is nothing to set here now.</source>
        <translation>Hier gibt es jetzt nichts einzustellen.</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Schließen</translation>
    </message>
</context>
<context>
    <name>SicsLineParser</name>
    <message>
        <source>A line of more than %1 bytes; check the scale&apos;s interface settings.</source>
        <translation>Eine Zeile von mehr als %1 Bytes; prüfen Sie die Schnittstelleneinstellungen der Waage.</translation>
    </message>
    <message>
        <source>The scale cannot give a weight at present.</source>
        <translation>Die Waage kann gerade kein Gewicht angeben.</translation>
    </message>
    <message>
        <source>The scale reports an overload.</source>
        <translation>Die Waage meldet Überlast.</translation>
    </message>
    <message>
        <source>The scale reports an underload.</source>
        <translation>Die Waage meldet Unterlast.</translation>
    </message>
    <message>
        <source>Not a weight line: &quot;%1&quot;.</source>
        <translation>Keine Gewichtszeile: &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Not a number: &quot;%1&quot;.</source>
        <translation>Keine Zahl: &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Not a weight: &quot;%1&quot;.</source>
        <translation>Kein Gewicht: &quot;%1&quot;.</translation>
    </message>
    <message>
        <source>Unknown unit: &quot;%1&quot;.</source>
        <translation>Unbekannte Einheit: &quot;%1&quot;.</translation>
    </message>
</context>
<context>
    <name>SourceSpec</name>
    <message>
        <source>the bracket before the IPv6 address is not closed</source>
        <translation>die Klammer vor der IPv6-Adresse ist nicht geschlossen</translation>
    </message>
    <message>
        <source>the port is missing</source>
        <translation>der Port fehlt</translation>
    </message>
    <message>
        <source>what stands in brackets is not an IPv6 address</source>
        <translation>was in Klammern steht, ist keine IPv6-Adresse</translation>
    </message>
    <message>
        <source>an IPv6 address must stand in brackets</source>
        <translation>eine IPv6-Adresse muss in Klammern stehen</translation>
    </message>
    <message>
        <source>the host is missing</source>
        <translation>der Rechner fehlt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no host name or address</source>
        <translation>&quot;%1&quot; ist kein Rechnername und keine Adresse</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no port; a port is a number from 1 to 65535</source>
        <translation>&quot;%1&quot; ist kein Port; ein Port ist eine Zahl von 1 bis 65535</translation>
    </message>
    <message>
        <source>the device is missing</source>
        <translation>das Gerät fehlt</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is no baud rate; a baud rate is a number from 1 to %2</source>
        <translation>&quot;%1&quot; ist keine Baudrate; eine Baudrate ist eine Zahl von 1 bis %2</translation>
    </message>
    <message>
        <source>nothing may follow &quot;sim:&quot;</source>
        <translation>nach &quot;sim:&quot; darf nichts folgen</translation>
    </message>
    <message>
        <source>the file is missing</source>
        <translation>die Datei fehlt</translation>
    </message>
    <message>
        <source>this kind of weight source does not exist</source>
        <translation>diese Art von Gewichtsquelle gibt es nicht</translation>
    </message>
    <message>
        <source>Weight source &quot;%1&quot;: %2. Write %3.</source>
        <translation>Gewichtsquelle &quot;%1&quot;: %2. Schreiben Sie %3.</translation>
    </message>
    <message>
        <source>the weight has %1 decimal places, and at most %2 can be shown; round the weights or give a readability.</source>
        <translation>das Gewicht hat %1 Nachkommastellen, höchstens %2 lassen sich zeigen; runden Sie die Gewichte, oder geben Sie eine Ablesbarkeit an.</translation>
    </message>
    <message>
        <source>Weight source &quot;serial:%1&quot;: %2. Give a device such as /dev/ttyUSB0.</source>
        <translation>Gewichtsquelle „serial:%1“: %2. Nennen Sie ein Gerät wie /dev/ttyUSB0.</translation>
    </message>
</context>
<context>
    <name>StabilitySettings</name>
    <message>
        <source>&quot;%1&quot; does not say what stable means: give seconds (0.05 to 60) and display increments (0 to 1000), separated by a comma, such as 1.0,1.</source>
        <translation>&quot;%1&quot; sagt nicht, was stabil heißt: Geben Sie Sekunden (0.05 bis 60) und Ziffernschritte (0 bis 1000) an, durch Komma getrennt, etwa 1.0,1.</translation>
    </message>
</context>
<context>
    <name>StatusLine</name>
    <message>
        <source>No application</source>
        <translation>Keine Anwendung</translation>
    </message>
    <message>
        <source>Repeat (%1)</source>
        <translation>Erneut (%1)</translation>
    </message>
</context>
<context>
    <name>TextDialog</name>
    <message>
        <source>Cancel</source>
        <translation>Abbrechen</translation>
    </message>
    <message>
        <source>OK</source>
        <translation>OK</translation>
    </message>
</context>
<context>
    <name>TraceFile</name>
    <message>
        <source>the line is longer than %1 bytes; a line is a time and a weight, such as &quot;0.250,12.5&quot;.</source>
        <translation>die Zeile ist länger als %1 Bytes; eine Zeile ist eine Zeit und ein Gewicht, etwa &quot;0.250,12.5&quot;.</translation>
    </message>
    <message>
        <source>this is not UTF-8 text; save the file as plain text in UTF-8.</source>
        <translation>dies ist kein UTF-8-Text; speichern Sie die Datei als reinen Text in UTF-8.</translation>
    </message>
    <message>
        <source>the %1 %2 is not a number; write a plain decimal number with a point, such as 12.5.</source>
        <translation>%1 %2 ist keine Zahl; schreiben Sie eine einfache Dezimalzahl mit Punkt, etwa 12.5.</translation>
    </message>
    <message>
        <source>no file is named; write trace:FILE.</source>
        <translation>es ist keine Datei genannt; schreiben Sie trace:DATEI.</translation>
    </message>
    <message>
        <source>there is no such file; check the path.</source>
        <translation>diese Datei gibt es nicht; prüfen Sie den Pfad.</translation>
    </message>
    <message>
        <source>this is a directory; name a recording in it.</source>
        <translation>dies ist ein Ordner; nennen Sie eine Aufzeichnung darin.</translation>
    </message>
    <message>
        <source>the file cannot be read (%1); check its permissions.</source>
        <translation>die Datei kann nicht gelesen werden (%1); prüfen Sie die Zugriffsrechte.</translation>
    </message>
    <message>
        <source>the file cannot be read (%1).</source>
        <translation>die Datei kann nicht gelesen werden (%1).</translation>
    </message>
    <message>
        <source>the file is empty; its first line must be &quot;%1&quot;.</source>
        <translation>die Datei ist leer; ihre erste Zeile muss &quot;%1&quot; sein.</translation>
    </message>
    <message>
        <source>the first line is %1; it must be the header &quot;%2&quot;.</source>
        <translation>die erste Zeile ist %1; sie muss die Kopfzeile &quot;%2&quot; sein.</translation>
    </message>
    <message>
        <source>line %1 is blank and more follows; remove the blank line.</source>
        <translation>Zeile %1 ist leer, und es folgen weitere; entfernen Sie die leere Zeile.</translation>
    </message>
    <message>
        <source>%1: 2 columns expected, %2 found; a line is a time and a weight with a decimal point, separated by one comma, such as &quot;0.250,12.5&quot;.</source>
        <translation>%1: 2 Spalten erwartet, %2 gefunden; eine Zeile ist eine Zeit und ein Gewicht mit Dezimalpunkt, durch ein Komma getrennt, etwa &quot;0.250,12.5&quot;.</translation>
    </message>
    <message>
        <source>time</source>
        <translation>Zeit</translation>
    </message>
    <message>
        <source>weight</source>
        <translation>Gewicht</translation>
    </message>
    <message>
        <source>the time %1 is out of range; it must lie between 0 and %2 seconds.</source>
        <translation>die Zeit %1 liegt außerhalb des Bereichs; sie muss zwischen 0 und %2 Sekunden liegen.</translation>
    </message>
    <message>
        <source>the weight %1 is out of range; it must lie between -%2 and %2 grams.</source>
        <translation>das Gewicht %1 liegt außerhalb des Bereichs; es muss zwischen -%2 und %2 Gramm liegen.</translation>
    </message>
    <message>
        <source>the time goes back to %1 s after %2 s; put the lines in the order of their times.</source>
        <translation>die Zeit springt von %2 s auf %1 s zurück; ordnen Sie die Zeilen nach ihren Zeiten.</translation>
    </message>
    <message>
        <source>there are more than %1 readings; cut the recording into parts.</source>
        <translation>es sind mehr als %1 Messwerte; teilen Sie die Aufzeichnung.</translation>
    </message>
    <message>
        <source>there are no readings after the header; add lines such as &quot;0.250,12.5&quot;.</source>
        <translation>nach der Kopfzeile folgen keine Messwerte; fügen Sie Zeilen wie &quot;0.250,12.5&quot; an.</translation>
    </message>
    <message>
        <source>there is no reading between %1 s and %2 s, which is more than a day; the times are seconds since the start of the recording: subtract what is too much.</source>
        <translation>zwischen %1 s und %2 s liegt kein Messwert, mehr als einen Tag lang; die Zeiten sind Sekunden seit Beginn der Aufzeichnung: ziehen Sie ab, was zu viel ist.</translation>
    </message>
    <message>
        <source>there is not enough memory for it; cut the recording into parts.</source>
        <translation>der Speicher reicht dafür nicht; teilen Sie die Aufzeichnung.</translation>
    </message>
</context>
</TS>
