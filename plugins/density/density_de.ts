<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<!-- SPDX-License-Identifier: BSD-3-Clause -->
<TS version="2.1" language="de">
<context>
    <name>DensityPlugin</name>
    <message>
        <source>Buoyancy</source>
        <translation>Auftrieb</translation>
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
        <source>Next value</source>
        <translation>Nächster Wert</translation>
    </message>
    <message>
        <source>Close pad</source>
        <translation>Schließen</translation>
    </message>
    <message>
        <source>Number pad</source>
        <translation>Ziffern</translation>
    </message>
    <message>
        <source>Exact formula</source>
        <translation>Exakte Formel</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>Anzeige</translation>
    </message>
    <message>
        <source>Correction</source>
        <translation>Korrektur</translation>
    </message>
    <message>
        <source>Corrected</source>
        <translation>Korrigiert</translation>
    </message>
    <message>
        <source>Air density</source>
        <translation>Luftdichte</translation>
    </message>
    <message>
        <source>Factor</source>
        <translation>Faktor</translation>
    </message>
</context>
<context>
    <name>DensityScreen</name>
    <message>
        <source>Only %1</source>
        <translation>Nur %1</translation>
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
        <source>Delete</source>
        <translation>Löschen</translation>
    </message>
</context>
<context>
    <name>DensityViewModel</name>
    <message>
        <source>The weight is corrected for buoyancy</source>
        <translation>Das Gewicht ist auftriebskorrigiert</translation>
    </message>
    <message>
        <source>Waiting for a stable weight…</source>
        <translation>Warten auf ein stabiles Gewicht…</translation>
    </message>
    <message>
        <source>Corrected weight sent</source>
        <translation>Korrigiertes Gewicht gesendet</translation>
    </message>
    <message>
        <source>Not sent: no valid weight</source>
        <translation>Nicht gesendet: kein gültiges Gewicht</translation>
    </message>
    <message>
        <source>Check the values: not all could be read from %1</source>
        <translation>Werte prüfen: Nicht alle waren lesbar in %1</translation>
    </message>
    <message>
        <source>The values cannot be kept in %1</source>
        <translation>Die Werte lassen sich nicht speichern in %1</translation>
    </message>
    <message>
        <source>NET</source>
        <translation>NET</translation>
    </message>
    <message>
        <source>PT</source>
        <translation>PT</translation>
    </message>
    <message>
        <source>No weight to correct</source>
        <translation>Kein Gewicht zu korrigieren</translation>
    </message>
</context>
<context>
    <name>Parameters</name>
    <message>
        <source>Temperature</source>
        <translation>Temperatur</translation>
    </message>
    <message>
        <source>Humidity</source>
        <translation>Feuchte</translation>
    </message>
    <message>
        <source>Pressure</source>
        <translation>Luftdruck</translation>
    </message>
    <message>
        <source>Sample density</source>
        <translation>Dichte Probe</translation>
    </message>
    <message>
        <source>Weights density</source>
        <translation>Dichte Gew.</translation>
    </message>
</context>
</TS>
