<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="de_DE" sourcelanguage="en">
<context>
    <name>FillingMenu</name>
    <message>
        <source>Filling</source>
        <translation>Abfüllen</translation>
    </message>
    <message>
        <source>Target weight</source>
        <translation>Zielgewicht</translation>
    </message>
    <message>
        <source>Mode</source>
        <translation>Art</translation>
    </message>
    <message>
        <source>Tare first</source>
        <translation>Zuerst tarieren</translation>
    </message>
    <message>
        <source>Batch</source>
        <translation>Charge</translation>
    </message>
    <message>
        <source>Clear batch</source>
        <translation>Charge löschen</translation>
    </message>
    <message>
        <source>Clear the name of the batch?</source>
        <translation>Den Namen der Charge löschen?</translation>
    </message>
    <message>
        <source>Coarse</source>
        <translation>Grob</translation>
    </message>
    <message>
        <source>Fine</source>
        <translation>Fein</translation>
    </message>
</context>
<context>
    <name>FillingPlugin</name>
    <message>
        <source>Weigh in</source>
        <translation>Einwiegen</translation>
    </message>
    <message>
        <source>Add 125.0 g of wheat flour</source>
        <translation>125,0 g Weizenmehl zugeben</translation>
    </message>
    <message>
        <source>Weighed in %1</source>
        <translation>Eingewogen: %1</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Start</translation>
    </message>
    <message>
        <source>Step %1</source>
        <translation>Schritt %1</translation>
    </message>
    <message>
        <source>Done</source>
        <translation>Fertig</translation>
    </message>
    <message>
        <source>Abandoned</source>
        <translation>Abgebrochen</translation>
    </message>
</context>
<context>
    <name>Filling</name>
    <message>
        <source>Target: %1 g</source>
        <translation>Ziel: %1 g</translation>
    </message>
</context>
</TS>
