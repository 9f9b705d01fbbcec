<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
    <context>
        <name>HartCommand</name>
        <message>
            <source>*** parity error</source>
            <translation>*** parity error</translation>
        </message>
        <message>
            <source>*** speed overflow error</source>
            <translation>*** speed overflow error</translation>
        </message>
        <message>
            <source>*** synhronization (frame) error</source>
            <translation>*** synhronization (frame) error</translation>
        </message>
        <message>
            <source>*** checksum error</source>
            <translation>*** checksum error</translation>
        </message>
        <message>
            <source>*** receive buffer overflow error</source>
            <translation>*** receive buffer overflow error</translation>
        </message>
        <message>
            <source>*** Field device malfunction</source>
            <translation>*** Field device malfunction</translation>
        </message>
        <message>
            <source>*** Configuration changed</source>
            <translation>*** Configuration changed</translation>
        </message>
        <message>
            <source>*** Cold start</source>
            <translation>*** Cold start</translation>
        </message>
        <message>
            <source>*** More status available</source>
            <translation>*** More status available</translation>
        </message>
        <message>
            <source>*** Analogue output fixed</source>
            <translation>*** Analogue output fixed</translation>
        </message>
        <message>
            <source>*** Analogue output out of limits</source>
            <translation>*** Analogue output out of limits</translation>
        </message>
        <message>
            <source>*** Non-primary variable out of limits</source>
            <translation>*** Non-primary variable out of limits</translation>
        </message>
        <message>
            <source>*** Primary variable out of limits</source>
            <translation>*** Primary variable out of limits</translation>
        </message>
        <message>
            <source>*** wrong choice</source>
            <translation>*** wrong choice</translation>
        </message>
        <message>
            <source>*** last parameter too large</source>
            <translation>*** last parameter too large</translation>
        </message>
        <message>
            <source>*** last parameter too small</source>
            <translation>*** last parameter too small</translation>
        </message>
        <message>
            <source>*** too few data bytes have been received</source>
            <translation>*** too few data bytes have been received</translation>
        </message>
        <message>
            <source>*** command not executed</source>
            <translation>*** command not executed</translation>
        </message>
        <message>
            <source>*** write protection mode set</source>
            <translation>*** write protection mode set</translation>
        </message>
        <message>
            <source>*** update in progress</source>
            <translation>*** update in progress</translation>
        </message>
        <message>
            <source>*** linearization point not used</source>
            <translation>*** linearization point not used</translation>
        </message>
        <message>
            <source>*** temperature is different from previous value at this point</source>
            <translation>*** temperature is different from previous value at this point</translation>
        </message>
        <message>
            <source>*** incorrect input signal type selected</source>
            <translation>*** incorrect input signal type selected</translation>
        </message>
        <message>
            <source>*** the lower range limit greater of maximum allowable value</source>
            <translation>*** the lower range limit greater of maximum allowable value</translation>
        </message>
        <message>
            <source>*** PV value is greater of upper range limit</source>
            <translation>*** PV value is greater of upper range limit</translation>
        </message>
        <message>
            <source>*** mismatch counter configuration change</source>
            <translation>*** mismatch counter configuration change</translation>
        </message>
        <message>
            <source>*** incorrect fixed current value</source>
            <translation>*** incorrect fixed current value</translation>
        </message>
        <message>
            <source>*** number of decimal places is too large</source>
            <translation>*** number of decimal places is too large</translation>
        </message>
        <message>
            <source>*** value set is too large</source>
            <translation>*** value set is too large</translation>
        </message>
        <message>
            <source>*** the lower range limit less of minimum  allowable value</source>
            <translation>*** the lower range limit less of minimum  allowable value</translation>
        </message>
        <message>
            <source>*** PV value is less of lower range limit</source>
            <translation>*** PV value is less of lower range limit</translation>
        </message>
        <message>
            <source>*** value set is too small</source>
            <translation>*** value set is too small</translation>
        </message>
        <message>
            <source>*** the upper range limit greater of maximum allowable value</source>
            <translation>*** the upper range limit greater of maximum allowable value</translation>
        </message>
        <message>
            <source>*** current output off - device in multidrop mode</source>
            <translation>*** current output off - device in multidrop mode</translation>
        </message>
        <message>
            <source>*** loop Current Not Active (Device in Multidrop Mode)</source>
            <translation>*** loop Current Not Active (Device in Multidrop Mode)</translation>
        </message>
        <message>
            <source>*** current output mode incorrect selection</source>
            <translation>*** current output mode incorrect selection</translation>
        </message>
        <message>
            <source>*** the upper range value less of minimum  allowable value</source>
            <translation>*** the upper range value less of minimum  allowable value</translation>
        </message>
        <message>
            <source>*** saved factory settings are missing</source>
            <translation>*** saved factory settings are missing</translation>
        </message>
        <message>
            <source>*** unrecognized error 12</source>
            <translation>*** unrecognized error 12</translation>
        </message>
        <message>
            <source>*** upper and lower conversion limits are out of permissible values</source>
            <translation>*** upper and lower conversion limits are out of permissible values</translation>
        </message>
        <message>
            <source>*** the minimum range is too small - impaired accuracy</source>
            <translation>*** the minimum range is too small - impaired accuracy</translation>
        </message>
        <message>
            <source>*** restricted access</source>
            <translation>*** restricted access</translation>
        </message>
        <message>
            <source>*** invalid unit code</source>
            <translation>*** invalid unit code</translation>
        </message>
        <message>
            <source>*** invalid range</source>
            <translation>*** invalid range</translation>
        </message>
        <message>
            <source>*** device is busy</source>
            <translation>*** device is busy</translation>
        </message>
        <message>
            <source>*** command not implemented</source>
            <translation>*** command not implemented</translation>
        </message>
        <message>
            <source>*** Invalid message size for command parsing: %1</source>
            <translation>*** Invalid message size for command parsing: %1</translation>
        </message>
        <message>
            <source>*** Start of message not found!</source>
            <translation>*** Start of message not found!</translation>
        </message>
        <message>
            <source>*** Unexpected end of message!</source>
            <translation>*** Unexpected end of message!</translation>
        </message>
        <message>
            <source>*** Invalid delimiter: %1</source>
            <translation>*** Invalid delimiter: %1</translation>
        </message>
        <message>
            <source>*** Invalid dataLength (=1)</source>
            <translation>*** Invalid dataLength (=1)</translation>
        </message>
        <message>
            <source>*** Checksum is wrong!</source>
            <translation>*** Checksum is wrong!</translation>
        </message>
        <message>
            <source>*** start delimiter check error:  %1 / %2</source>
            <translation>*** start delimiter check error:  %1 / %2</translation>
        </message>
        <message>
            <source>*** command number check error:  %1 / %2</source>
            <translation>*** command number check error:  %1 / %2</translation>
        </message>
        <message>
            <source>*** address check error: %1</source>
            <translation>*** address check error: %1</translation>
        </message>
        <message>
            <source>Communication error:</source>
            <translation>Communication error:</translation>
        </message>
        <message>
            <source>Command error (error code %1): </source>
            <translation>Command error (error code %1): </translation>
        </message>
        <message>
            <source>*** unknown error code: %1 hex: %2</source>
            <translation>*** unknown error code: %1 hex: %2</translation>
        </message>
    </context>
    <context>
        <name>QObject</name>
        <message>
            <source>Calvane: HART configurator</source>
            <translation>Calvane: HART configurator</translation>
        </message>
        <message>
            <source>Calvane</source>
            <translation>Calvane</translation>
        </message>
    </context>
</TS>
