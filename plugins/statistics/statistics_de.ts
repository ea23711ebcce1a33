<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: BSD-3-Clause -->
<TS version="2.1" language="de">
<context>
    <name>SeriesExport</name>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The file %1 cannot be written. Check the free space and the permissions.</source>
        <translation>Die Datei %1 kann nicht geschrieben werden. Freien Platz und Berechtigungen prüfen.</translation>
    </message>
</context>
<context>
    <name>SeriesStore</name>
    <message>
        <source>The folder %1 cannot be made.</source>
        <translation>Der Ordner %1 kann nicht angelegt werden.</translation>
    </message>
    <message>
        <source>The file %1 cannot be opened: %2</source>
        <translation>Die Datei %1 kann nicht geöffnet werden: %2</translation>
    </message>
    <message>
        <source>The file %1 was written by a newer version of this application.</source>
        <translation>Die Datei %1 wurde von einer neueren Version dieser Anwendung geschrieben.</translation>
    </message>
    <message>
        <source>The file %1 cannot be used: %2</source>
        <translation>Die Datei %1 kann nicht benutzt werden: %2</translation>
    </message>
    <message>
        <source>The file %1 is damaged.</source>
        <translation>Die Datei %1 ist beschädigt.</translation>
    </message>
    <message>
        <source>Another program uses the file %1.</source>
        <translation>Ein anderes Programm benutzt die Datei %1.</translation>
    </message>
    <message>
        <source>The file %1 is damaged and cannot be renamed.</source>
        <translation>Die Datei %1 ist beschädigt und kann nicht umbenannt werden.</translation>
    </message>
</context>
<context>
    <name>StatisticsPlugin</name>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
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
        <source>Record</source>
        <translation>Erfassen</translation>
    </message>
    <message>
        <source>Automatic</source>
        <translation>Automatik</translation>
    </message>
    <message>
        <source>Undo last</source>
        <translation>Letzte zurück</translation>
    </message>
    <message>
        <source>Really clear</source>
        <translation>Wirklich löschen</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
    <message>
        <source>Export</source>
        <translation>Export</translation>
    </message>
    <message>
        <source>Weighings</source>
        <translation>Wägungen</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Standard deviation</source>
        <translation>Std.-Abweichung</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Print-outs</source>
        <translation>Ausdrucke</translation>
    </message>
</context>
<context>
    <name>StatisticsProtocol</name>
    <message>
        <source>Weighings</source>
        <translation>Wägungen</translation>
    </message>
    <message>
        <source>Mean</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>Standard deviation</source>
        <translation>Std.-Abweichung</translation>
    </message>
    <message>
        <source>Minimum</source>
        <translation>Minimum</translation>
    </message>
    <message>
        <source>Maximum</source>
        <translation>Maximum</translation>
    </message>
    <message>
        <source>Statistics</source>
        <translation>Statistik</translation>
    </message>
</context>
<context>
    <name>StatisticsScreen</name>
    <message>
        <source>Mean</source>
        <translation>Mittel</translation>
    </message>
    <message>
        <source>No weighings yet</source>
        <translation>Noch keine Wägungen</translation>
    </message>
    <message>
        <source>Load change</source>
        <translation>Lastwechsel</translation>
    </message>
    <message>
        <source>Clear all weighings (%1)?</source>
        <translation>Alle Wägungen löschen (%1)?</translation>
    </message>
    <message>
        <source>Keep</source>
        <translation>Behalten</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>StatisticsViewModel</name>
    <message>
        <source>Put a load on: it is recorded when it is stable</source>
        <translation>Last auflegen: Sie wird erfasst, sobald sie stabil ist</translation>
    </message>
    <message>
        <source>Put a load on and press Record</source>
        <translation>Last auflegen und Erfassen drücken</translation>
    </message>
    <message>
        <source>Waiting for a stable weight…</source>
        <translation>Warten auf ein stabiles Gewicht…</translation>
    </message>
    <message>
        <source>Weighing %1 recorded</source>
        <translation>Wägung %1 erfasst</translation>
    </message>
    <message>
        <source>Weighing %1 taken out</source>
        <translation>Wägung %1 herausgenommen</translation>
    </message>
    <message>
        <source>A new series begins</source>
        <translation>Eine neue Reihe beginnt</translation>
    </message>
    <message>
        <source>Exported to %1</source>
        <translation>Exportiert nach %1</translation>
    </message>
    <message>
        <source>Not recorded: no valid weight</source>
        <translation>Nicht erfasst: kein gültiges Gewicht</translation>
    </message>
    <message>
        <source>Not recorded: the series is in %1. Change the unit, or clear the series.</source>
        <translation>Nicht erfasst: Die Reihe ist in %1. Einheit wechseln oder Reihe löschen.</translation>
    </message>
    <message>
        <source>Not recorded: the series has %1 weighings and is full. Export and clear it.</source>
        <translation>Nicht erfasst: Die Reihe hat %1 Wägungen und ist voll. Exportieren und löschen.</translation>
    </message>
    <message>
        <source>Not stored. %1</source>
        <translation>Nicht gespeichert. %1</translation>
    </message>
    <message>
        <source>Not exported. %1</source>
        <translation>Nicht exportiert. %1</translation>
    </message>
    <message>
        <source>The stored series was damaged. It is kept as %1, and a new one begins.</source>
        <translation>Die gespeicherte Reihe war beschädigt. Sie bleibt als %1 erhalten, eine neue beginnt.</translation>
    </message>
    <message>
        <source>Not recording by itself: the threshold must be below the capacity of the scale</source>
        <translation>Keine selbsttätige Erfassung: Die Schwelle muss unter der Höchstlast der Waage liegen</translation>
    </message>
</context>
</TS>
