<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="en_US">
    <context>
        <name>CommandWidget</name>
        <message>
            <source>Custom command</source>
            <translation>Custom command</translation>
        </message>
        <message>
            <source>Command:</source>
            <translation>Command:</translation>
        </message>
        <message>
            <source>HART command number</source>
            <translation>HART command number</translation>
        </message>
        <message>
            <source>Commands the device knows</source>
            <translation>Commands the device knows</translation>
        </message>
        <message>
            <source>Send as custom command</source>
            <translation>Send as custom command</translation>
        </message>
        <message>
            <source>Send the data buffer even for a command the device knows</source>
            <translation>Send the data buffer even for a command the device knows</translation>
        </message>
        <message>
            <source>Send</source>
            <translation>Send</translation>
        </message>
        <message>
            <source>Request data</source>
            <translation>Request data</translation>
        </message>
        <message>
            <source>Data:</source>
            <translation>Data:</translation>
        </message>
        <message>
            <source>Select bytes to replace them by the next insertion</source>
            <translation>Select bytes to replace them by the next insertion</translation>
        </message>
        <message>
            <source>Byte:</source>
            <translation>Byte:</translation>
        </message>
        <message>
            <source>Previous value</source>
            <translation>Previous value</translation>
        </message>
        <message>
            <source>Next value</source>
            <translation>Next value</translation>
        </message>
        <message>
            <source>Add byte</source>
            <translation>Add byte</translation>
        </message>
        <message>
            <source>Integer:</source>
            <translation>Integer:</translation>
        </message>
        <message>
            <source>Size:</source>
            <translation>Size:</translation>
        </message>
        <message>
            <source>Bytes of the integer</source>
            <translation>Bytes of the integer</translation>
        </message>
        <message>
            <source>Add int</source>
            <translation>Add int</translation>
        </message>
        <message>
            <source>Get int</source>
            <translation>Get int</translation>
        </message>
        <message>
            <source>Float:</source>
            <translation>Float:</translation>
        </message>
        <message>
            <source>Add float</source>
            <translation>Add float</translation>
        </message>
        <message>
            <source>Get float</source>
            <translation>Get float</translation>
        </message>
        <message>
            <source>Text:</source>
            <translation>Text:</translation>
        </message>
        <message>
            <source>Add packed</source>
            <translation>Add packed</translation>
        </message>
        <message>
            <source>Add as packed ASCII</source>
            <translation>Add as packed ASCII</translation>
        </message>
        <message>
            <source>Add Latin-1</source>
            <translation>Add Latin-1</translation>
        </message>
        <message>
            <source>Add as Latin-1 characters, one byte each</source>
            <translation>Add as Latin-1 characters, one byte each</translation>
        </message>
        <message>
            <source>Get text</source>
            <translation>Get text</translation>
        </message>
        <message>
            <source>Read packed ASCII from the offset</source>
            <translation>Read packed ASCII from the offset</translation>
        </message>
        <message>
            <source>Offset:</source>
            <translation>Offset:</translation>
        </message>
        <message>
            <source>Where Get reads in the buffer</source>
            <translation>Where Get reads in the buffer</translation>
        </message>
        <message>
            <source>Clear buffer</source>
            <translation>Clear buffer</translation>
        </message>
        <message>
            <source>Answer</source>
            <translation>Answer</translation>
        </message>
        <message>
            <source>Sent:</source>
            <translation>Sent:</translation>
        </message>
        <message>
            <source>Data bytes of the request</source>
            <translation>Data bytes of the request</translation>
        </message>
        <message>
            <source>Received:</source>
            <translation>Received:</translation>
        </message>
        <message>
            <source>Data bytes of the answer</source>
            <translation>Data bytes of the answer</translation>
        </message>
        <message>
            <source>Mask:</source>
            <translation>Mask:</translation>
        </message>
        <message>
            <source>Tokens [offset]type[length] separated by blanks: b byte, i integer (3 bytes by default), f float, t packed text</source>
            <translation>Tokens [offset]type[length] separated by blanks: b byte, i integer (3 bytes by default), f float, t packed text</translation>
        </message>
        <message>
            <source>Parse</source>
            <translation>Parse</translation>
        </message>
        <message>
            <source>Result:</source>
            <translation>Result:</translation>
        </message>
        <message>
            <source>Custom command %1</source>
            <translation>Custom command %1</translation>
        </message>
        <message>
            <source>%1 bytes</source>
            <translation>%1 bytes</translation>
        </message>
        <message>
            <source>Offset %1, length %2</source>
            <translation>Offset %1, length %2</translation>
        </message>
        <message>
            <source>Int value</source>
            <translation>Int value</translation>
        </message>
        <message>
            <source>You must enter an integer value!</source>
            <translation>You must enter an integer value!</translation>
        </message>
        <message>
            <source>Invalid type char</source>
            <translation>Invalid type char</translation>
        </message>
        <message>
            <source>Invalid lenght char</source>
            <translation>Invalid lenght char</translation>
        </message>
        <message>
            <source>Invalid text lenght</source>
            <translation>Invalid text lenght</translation>
        </message>
        <message>
            <source>Beyond the end of the answer</source>
            <translation>Beyond the end of the answer</translation>
        </message>
    </context>
    <context>
        <name>CommonWidget</name>
        <message>
            <source>Common</source>
            <translation>Common</translation>
        </message>
        <message>
            <source>Device on the line</source>
            <translation>Device on the line</translation>
        </message>
        <message>
            <source>Port:</source>
            <translation>Port:</translation>
        </message>
        <message>
            <source>Polling address:</source>
            <translation>Polling address:</translation>
        </message>
        <message>
            <source>Save</source>
            <translation>Save</translation>
        </message>
        <message>
            <source>Write the polling address to the device (command 6)</source>
            <translation>Write the polling address to the device (command 6)</translation>
        </message>
        <message>
            <source>Long address:</source>
            <translation>Long address:</translation>
        </message>
        <message>
            <source>Check</source>
            <translation>Check</translation>
        </message>
        <message>
            <source>Identify the device at its polling address (command 0)</source>
            <translation>Identify the device at its polling address (command 0)</translation>
        </message>
        <message>
            <source>Check by tag</source>
            <translation>Check by tag</translation>
        </message>
        <message>
            <source>Identify the device by the tag typed below (command 11)</source>
            <translation>Identify the device by the tag typed below (command 11)</translation>
        </message>
        <message>
            <source>Check by long tag</source>
            <translation>Check by long tag</translation>
        </message>
        <message>
            <source>Identify the device by the long tag typed below (command 21)</source>
            <translation>Identify the device by the long tag typed below (command 21)</translation>
        </message>
        <message>
            <source>Find by command 73</source>
            <translation>Find by command 73</translation>
        </message>
        <message>
            <source>Find the device whose two buttons are pressed (command 73)</source>
            <translation>Find the device whose two buttons are pressed (command 73)</translation>
        </message>
        <message>
            <source>Tag</source>
            <translation>Tag</translation>
        </message>
        <message>
            <source>Tag:</source>
            <translation>Tag:</translation>
        </message>
        <message>
            <source>Descriptor:</source>
            <translation>Descriptor:</translation>
        </message>
        <message>
            <source>Date:</source>
            <translation>Date:</translation>
        </message>
        <message>
            <source>Read</source>
            <translation>Read</translation>
        </message>
        <message>
            <source>Read or write the tag, descriptor and date (commands 13 and 18)</source>
            <translation>Read or write the tag, descriptor and date (commands 13 and 18)</translation>
        </message>
        <message>
            <source>Long tag</source>
            <translation>Long tag</translation>
        </message>
        <message>
            <source>Long tag:</source>
            <translation>Long tag:</translation>
        </message>
        <message>
            <source>Read the long tag (command 20)</source>
            <translation>Read the long tag (command 20)</translation>
        </message>
        <message>
            <source>Write the long tag (command 22)</source>
            <translation>Write the long tag (command 22)</translation>
        </message>
        <message>
            <source>Message</source>
            <translation>Message</translation>
        </message>
        <message>
            <source>Read or write the message (commands 12 and 17)</source>
            <translation>Read or write the message (commands 12 and 17)</translation>
        </message>
        <message>
            <source>Identity</source>
            <translation>Identity</translation>
        </message>
        <message>
            <source>Device type:</source>
            <translation>Device type:</translation>
        </message>
        <message>
            <source>Manufacturer:</source>
            <translation>Manufacturer:</translation>
        </message>
        <message>
            <source>Flags:</source>
            <translation>Flags:</translation>
        </message>
        <message>
            <source>HART revision:</source>
            <translation>HART revision:</translation>
        </message>
        <message>
            <source>Device revision:</source>
            <translation>Device revision:</translation>
        </message>
        <message>
            <source>Software revision:</source>
            <translation>Software revision:</translation>
        </message>
        <message>
            <source>Hardware revision:</source>
            <translation>Hardware revision:</translation>
        </message>
        <message>
            <source>Write protection</source>
            <translation>Write protection</translation>
        </message>
        <message>
            <source>Set write protection in the device (command 129); only the device itself removes it</source>
            <translation>Set write protection in the device (command 129); only the device itself removes it</translation>
        </message>
        <message>
            <source>Reset</source>
            <translation>Reset</translation>
        </message>
        <message>
            <source>Reset the device (command 42)</source>
            <translation>Reset the device (command 42)</translation>
        </message>
        <message>
            <source>Self test</source>
            <translation>Self test</translation>
        </message>
        <message>
            <source>Start the self test of the device (command 41)</source>
            <translation>Start the self test of the device (command 41)</translation>
        </message>
        <message>
            <source>Damping time</source>
            <translation>Damping time</translation>
        </message>
        <message>
            <source> s</source>
            <translation> s</translation>
        </message>
        <message>
            <source>Write the damping time (command 34)</source>
            <translation>Write the damping time (command 34)</translation>
        </message>
        <message>
            <source>Number of preambles</source>
            <translation>Number of preambles</translation>
        </message>
        <message>
            <source>Write the number of response preambles (command 59)</source>
            <translation>Write the number of response preambles (command 59)</translation>
        </message>
        <message>
            <source>Final assembly number</source>
            <translation>Final assembly number</translation>
        </message>
        <message>
            <source>Read or write the final assembly number (commands 16 and 19)</source>
            <translation>Read or write the final assembly number (commands 16 and 19)</translation>
        </message>
        <message>
            <source>Device identification by tag</source>
            <translation>Device identification by tag</translation>
        </message>
        <message>
            <source>Tag is empty!
Please enter a tag with up to 8 characters</source>
            <translation>Tag is empty!
Please enter a tag with up to 8 characters</translation>
        </message>
        <message>
            <source>Device identification by long tag</source>
            <translation>Device identification by long tag</translation>
        </message>
        <message>
            <source>Long tag is empty!
Please enter a long tag with up to 32 characters</source>
            <translation>Long tag is empty!
Please enter a long tag with up to 32 characters</translation>
        </message>
        <message>
            <source>by tag</source>
            <translation>by tag</translation>
        </message>
        <message>
            <source>by long tag</source>
            <translation>by long tag</translation>
        </message>
        <message>
            <source>Device identification %1</source>
            <translation>Device identification %1</translation>
        </message>
        <message>
            <source>Search by command 73</source>
            <translation>Search by command 73</translation>
        </message>
        <message>
            <source>Did you press two buttons on the device?</source>
            <translation>Did you press two buttons on the device?</translation>
        </message>
        <message>
            <source>ERROR: Tags not equal!
Send: '%1'
Resv: '%2'</source>
            <translation>ERROR: Tags not equal!
Send: '%1'
Resv: '%2'</translation>
        </message>
        <message>
            <source>Check device</source>
            <translation>Check device</translation>
        </message>
        <message>
            <source>Wrong template %1 for
device type code = 0x%2%3 !!!

Continue ?</source>
            <translation>Wrong template %1 for
device type code = 0x%2%3 !!!

Continue ?</translation>
        </message>
        <message>
            <source>Writing %1</source>
            <translation>Writing %1</translation>
        </message>
        <message>
            <source>The device is write-protected!</source>
            <translation>The device is write-protected!</translation>
        </message>
        <message>
            <source>of %1</source>
            <translation>of %1</translation>
        </message>
        <message>
            <source>Do you want to save your changes %1?</source>
            <translation>Do you want to save your changes %1?</translation>
        </message>
        <message>
            <source>tag, descriptor and date</source>
            <translation>tag, descriptor and date</translation>
        </message>
        <message>
            <source>message</source>
            <translation>message</translation>
        </message>
        <message>
            <source>assemlbly number</source>
            <translation>assemlbly number</translation>
        </message>
        <message>
            <source>Reading %1</source>
            <translation>Reading %1</translation>
        </message>
        <message>
            <source>long tag</source>
            <translation>long tag</translation>
        </message>
        <message>
            <source>damping time</source>
            <translation>damping time</translation>
        </message>
        <message>
            <source>number of preambles</source>
            <translation>number of preambles</translation>
        </message>
        <message>
            <source>polling_address</source>
            <translation>polling_address</translation>
        </message>
        <message>
            <source>Do you want to disable the current loop function?</source>
            <translation>Do you want to disable the current loop function?</translation>
        </message>
        <message>
            <source>
To remove write protection is possible only
through the menu of the device!</source>
            <translation>
To remove write protection is possible only
through the menu of the device!</translation>
        </message>
        <message>
            <source>Do you want to set write protection in the device?
</source>
            <translation>Do you want to set write protection in the device?
</translation>
        </message>
        <message>
            <source>Set write protection</source>
            <translation>Set write protection</translation>
        </message>
        <message>
            <source>Reading write protection flag</source>
            <translation>Reading write protection flag</translation>
        </message>
        <message>
            <source>Device self test</source>
            <translation>Device self test</translation>
        </message>
        <message>
            <source>Are you sure you want to start the device self test? It can take some time!</source>
            <translation>Are you sure you want to start the device self test? It can take some time!</translation>
        </message>
    </context>
    <context>
        <name>DefaultDeviceWidget</name>
        <message>
            <source>HART device</source>
            <translation>HART device</translation>
        </message>
        <message>
            <source>Current state</source>
            <translation>Current state</translation>
        </message>
        <message>
            <source>Configuration</source>
            <translation>Configuration</translation>
        </message>
        <message>
            <source>Primary variable</source>
            <translation>Primary variable</translation>
        </message>
        <message>
            <source>Units</source>
            <translation>Units</translation>
        </message>
        <message>
            <source>Units of the primary variable and of its range (command 44)</source>
            <translation>Units of the primary variable and of its range (command 44)</translation>
        </message>
        <message>
            <source>Transfer function</source>
            <translation>Transfer function</translation>
        </message>
        <message>
            <source>How the output follows the primary variable (command 47)</source>
            <translation>How the output follows the primary variable (command 47)</translation>
        </message>
        <message>
            <source>Alarm selection</source>
            <translation>Alarm selection</translation>
        </message>
        <message>
            <source>What the output does on a failure (command 15)</source>
            <translation>What the output does on a failure (command 15)</translation>
        </message>
        <message>
            <source>Extended status</source>
            <translation>Extended status</translation>
        </message>
        <message>
            <source>Conversion range</source>
            <translation>Conversion range</translation>
        </message>
        <message>
            <source>Lower range value</source>
            <translation>Lower range value</translation>
        </message>
        <message>
            <source>The value at 4 mA (command 35)</source>
            <translation>The value at 4 mA (command 35)</translation>
        </message>
        <message>
            <source>Take from PV</source>
            <translation>Take from PV</translation>
        </message>
        <message>
            <source>Make the present primary variable the lower range value (command 37)</source>
            <translation>Make the present primary variable the lower range value (command 37)</translation>
        </message>
        <message>
            <source>Upper range value</source>
            <translation>Upper range value</translation>
        </message>
        <message>
            <source>The value at 20 mA (command 35)</source>
            <translation>The value at 20 mA (command 35)</translation>
        </message>
        <message>
            <source>Make the present primary variable the upper range value (command 36)</source>
            <translation>Make the present primary variable the upper range value (command 36)</translation>
        </message>
        <message>
            <source>Sensor of the primary variable</source>
            <translation>Sensor of the primary variable</translation>
        </message>
        <message>
            <source>Sensor serial number</source>
            <translation>Sensor serial number</translation>
        </message>
        <message>
            <source>Serial number of the sensor (command 49)</source>
            <translation>Serial number of the sensor (command 49)</translation>
        </message>
        <message>
            <source>Lower sensor limit</source>
            <translation>Lower sensor limit</translation>
        </message>
        <message>
            <source>Upper sensor limit</source>
            <translation>Upper sensor limit</translation>
        </message>
        <message>
            <source>Minimum span</source>
            <translation>Minimum span</translation>
        </message>
        <message>
            <source>Output current</source>
            <translation>Output current</translation>
        </message>
        <message>
            <source>Fixed current, mA</source>
            <translation>Fixed current, mA</translation>
        </message>
        <message>
            <source>The loop current to hold (command 40)</source>
            <translation>The loop current to hold (command 40)</translation>
        </message>
        <message>
            <source>Set</source>
            <translation>Set</translation>
        </message>
        <message>
            <source>Reset</source>
            <translation>Reset</translation>
        </message>
        <message>
            <source>End the fixed current mode</source>
            <translation>End the fixed current mode</translation>
        </message>
        <message>
            <source>Measured current, mA</source>
            <translation>Measured current, mA</translation>
        </message>
        <message>
            <source>The current a reference meter measures in the loop</source>
            <translation>The current a reference meter measures in the loop</translation>
        </message>
        <message>
            <source>Adjust 4 mA</source>
            <translation>Adjust 4 mA</translation>
        </message>
        <message>
            <source>Write the measured current as 4 mA (command 45)</source>
            <translation>Write the measured current as 4 mA (command 45)</translation>
        </message>
        <message>
            <source>Adjust 20 mA</source>
            <translation>Adjust 20 mA</translation>
        </message>
        <message>
            <source>Write the measured current as 20 mA</source>
            <translation>Write the measured current as 20 mA</translation>
        </message>
        <message>
            <source>Adjust zero</source>
            <translation>Adjust zero</translation>
        </message>
        <message>
            <source>Make the present primary variable the zero (command 43)</source>
            <translation>Make the present primary variable the zero (command 43)</translation>
        </message>
        <message>
            <source>Device variables</source>
            <translation>Device variables</translation>
        </message>
        <message>
            <source>Dynamic variables</source>
            <translation>Dynamic variables</translation>
        </message>
        <message>
            <source>PV</source>
            <translation>PV</translation>
        </message>
        <message>
            <source>The device variable shown as PV (command 51)</source>
            <translation>The device variable shown as PV (command 51)</translation>
        </message>
        <message>
            <source>SV</source>
            <translation>SV</translation>
        </message>
        <message>
            <source>The device variable shown as SV (command 51)</source>
            <translation>The device variable shown as SV (command 51)</translation>
        </message>
        <message>
            <source>TV</source>
            <translation>TV</translation>
        </message>
        <message>
            <source>The device variable shown as TV (command 51)</source>
            <translation>The device variable shown as TV (command 51)</translation>
        </message>
        <message>
            <source>QV</source>
            <translation>QV</translation>
        </message>
        <message>
            <source>The device variable shown as QV (command 51)</source>
            <translation>The device variable shown as QV (command 51)</translation>
        </message>
        <message>
            <source>The device variables (command 9); a row shows its settings (command 54)</source>
            <translation>The device variables (command 9); a row shows its settings (command 54)</translation>
        </message>
        <message>
            <source>Device variable</source>
            <translation>Device variable</translation>
        </message>
        <message>
            <source>Family</source>
            <translation>Family</translation>
        </message>
        <message>
            <source>Units of the device variable (command 53)</source>
            <translation>Units of the device variable (command 53)</translation>
        </message>
        <message>
            <source>Read configuration</source>
            <translation>Read configuration</translation>
        </message>
        <message>
            <source>Read the dynamic variables, the range, the sensor and the device variables from the device</source>
            <translation>Read the dynamic variables, the range, the sensor and the device variables from the device</translation>
        </message>
        <message>
            <source>Write configuration</source>
            <translation>Write configuration</translation>
        </message>
        <message>
            <source>Write the changed (blue) settings into the device</source>
            <translation>Write the changed (blue) settings into the device</translation>
        </message>
        <message>
            <source>Pa  (Pa)</source>
            <translation>Pa  (Pa)</translation>
        </message>
        <message>
            <source>kPa (kPa)</source>
            <translation>kPa (kPa)</translation>
        </message>
        <message>
            <source>MPa (MPa)</source>
            <translation>MPa (MPa)</translation>
        </message>
        <message>
            <source>kgf/sm2 (kgf/sm2)</source>
            <translation>kgf/sm2 (kgf/sm2)</translation>
        </message>
        <message>
            <source>mbar (mbar)</source>
            <translation>mbar (mbar)</translation>
        </message>
        <message>
            <source>bar (bar)</source>
            <translation>bar (bar)</translation>
        </message>
        <message>
            <source>mmWS (mmWS)</source>
            <translation>mmWS (mmWS)</translation>
        </message>
        <message>
            <source>inchWS (inchWS)</source>
            <translation>inchWS (inchWS)</translation>
        </message>
        <message>
            <source>mmHg (mmHg)</source>
            <translation>mmHg (mmHg)</translation>
        </message>
        <message>
            <source>inchHg (inchHg)</source>
            <translation>inchHg (inchHg)</translation>
        </message>
        <message>
            <source>psi (lb/inch2)</source>
            <translation>psi (lb/inch2)</translation>
        </message>
        <message>
            <source>V</source>
            <translation>V</translation>
        </message>
        <message>
            <source>% (percent)</source>
            <translation>% (percent)</translation>
        </message>
        <message>
            <source>Null</source>
            <translation>Null</translation>
        </message>
        <message>
            <source>Not Used</source>
            <translation>Not Used</translation>
        </message>
        <message>
            <source>None</source>
            <translation>None</translation>
        </message>
        <message>
            <source>Unknown</source>
            <translation>Unknown</translation>
        </message>
        <message>
            <source>Special</source>
            <translation>Special</translation>
        </message>
        <message>
            <source>Linear</source>
            <translation>Linear</translation>
        </message>
        <message>
            <source>Square root</source>
            <translation>Square root</translation>
        </message>
        <message>
            <source>Square root third power</source>
            <translation>Square root third power</translation>
        </message>
        <message>
            <source>Square root fifth power</source>
            <translation>Square root fifth power</translation>
        </message>
        <message>
            <source>Special curve</source>
            <translation>Special curve</translation>
        </message>
        <message>
            <source>Square</source>
            <translation>Square</translation>
        </message>
        <message>
            <source>Discrete (switch)</source>
            <translation>Discrete (switch)</translation>
        </message>
        <message>
            <source>Code</source>
            <translation>Code</translation>
        </message>
        <message>
            <source>Class</source>
            <translation>Class</translation>
        </message>
        <message>
            <source>Value</source>
            <translation>Value</translation>
        </message>
        <message>
            <source>Unit</source>
            <translation>Unit</translation>
        </message>
        <message>
            <source>Status</source>
            <translation>Status</translation>
        </message>
        <message>
            <source>code %1</source>
            <translation>code %1</translation>
        </message>
        <message>
            <source>write protection is enabled</source>
            <translation>write protection is enabled</translation>
        </message>
        <message>
            <source>Device variable %1</source>
            <translation>Device variable %1</translation>
        </message>
        <message>
            <source>Try command 9 to get </source>
            <translation>Try command 9 to get </translation>
        </message>
        <message>
            <source>device variables</source>
            <translation>device variables</translation>
        </message>
        <message>
            <source>Read device configuration</source>
            <translation>Read device configuration</translation>
        </message>
        <message>
            <source>Read device variable information</source>
            <translation>Read device variable information</translation>
        </message>
        <message>
            <source>Zero adjustment</source>
            <translation>Zero adjustment</translation>
        </message>
        <message>
            <source>Do you want to set current
Primary Variable value=%1 %2
as Zero Value ?</source>
            <translation>Do you want to set current
Primary Variable value=%1 %2
as Zero Value ?</translation>
        </message>
        <message>
            <source>Adjusting zero</source>
            <translation>Adjusting zero</translation>
        </message>
        <message>
            <source>20mA adjustment</source>
            <translation>20mA adjustment</translation>
        </message>
        <message>
            <source>4mA adjustment</source>
            <translation>4mA adjustment</translation>
        </message>
        <message>
            <source>Have you set fixed loop current value at 20 mA ?</source>
            <translation>Have you set fixed loop current value at 20 mA ?</translation>
        </message>
        <message>
            <source>Have you set fixed loop current value at 4 mA ?</source>
            <translation>Have you set fixed loop current value at 4 mA ?</translation>
        </message>
        <message>
            <source>Do you really want to set the measured current value =%1 as 20 mA ?</source>
            <translation>Do you really want to set the measured current value =%1 as 20 mA ?</translation>
        </message>
        <message>
            <source>Do you really want to set the measured current value=%1 as 4 mA ?</source>
            <translation>Do you really want to set the measured current value=%1 as 4 mA ?</translation>
        </message>
    </context>
    <context>
        <name>Device</name>
        <message>
            <source>form device</source>
            <translation>form device</translation>
        </message>
        <message>
            <source>from file</source>
            <translation>from file</translation>
        </message>
        <message>
            <source>changed</source>
            <translation>changed</translation>
        </message>
        <message>
            <source>saved in device</source>
            <translation>saved in device</translation>
        </message>
        <message>
            <source>periodically requested</source>
            <translation>periodically requested</translation>
        </message>
        <message>
            <source>the device '%1' is not on a port</source>
            <translation>the device '%1' is not on a port</translation>
        </message>
        <message>
            <source>error open port '%1' - %2</source>
            <translation>error open port '%1' - %2</translation>
        </message>
        <message>
            <source>Device status: [%1]</source>
            <translation>Device status: [%1]</translation>
        </message>
        <message>
            <source>Success (processing time: %1ms)</source>
            <translation>Success (processing time: %1ms)</translation>
        </message>
        <message>
            <source>reset</source>
            <translation>reset</translation>
        </message>
        <message>
            <source>start</source>
            <translation>start</translation>
        </message>
        <message>
            <source>error %1 %2 %3 - %4</source>
            <translation>error %1 %2 %3 - %4</translation>
        </message>
        <message>
            <source>executing</source>
            <translation>executing</translation>
        </message>
        <message>
            <source>get</source>
            <translation>get</translation>
        </message>
        <message>
            <source>error %1 %2 - %3</source>
            <translation>error %1 %2 - %3</translation>
        </message>
        <message>
            <source>writing</source>
            <translation>writing</translation>
        </message>
        <message>
            <source>error executing cmd=%1 - %2</source>
            <translation>error executing cmd=%1 - %2</translation>
        </message>
        <message>
            <source>error %1 reading '%2' - %3</source>
            <translation>error %1 reading '%2' - %3</translation>
        </message>
        <message>
            <source>error %1 executing cmd=%2 - %3</source>
            <translation>error %1 executing cmd=%2 - %3</translation>
        </message>
        <message>
            <source>
Error (processing time: %1ms)</source>
            <translation>
Error (processing time: %1ms)</translation>
        </message>
        <message>
            <source>reading %1 (cmd=%2)...</source>
            <translation>reading %1 (cmd=%2)...</translation>
        </message>
        <message>
            <source>writing %1</source>
            <translation>writing %1</translation>
        </message>
        <message>
            <source>%1 (cmd=%2)...</source>
            <translation>%1 (cmd=%2)...</translation>
        </message>
        <message>
            <source>Get device ID by cmd %1 error:</source>
            <translation>Get device ID by cmd %1 error:</translation>
        </message>
        <message>
            <source>Try to check %1 by tag '%2' via %3 ...</source>
            <translation>Try to check %1 by tag '%2' via %3 ...</translation>
        </message>
        <message>
            <source>Try to check %1 by long tag '%2' via %3 ...</source>
            <translation>Try to check %1 by long tag '%2' via %3 ...</translation>
        </message>
        <message>
            <source>Try to check %1 at address %2 via %3 ...</source>
            <translation>Try to check %1 at address %2 via %3 ...</translation>
        </message>
        <message>
            <source>Checked successfully - %1 (%2 %3 exts:%4)!</source>
            <translation>Checked successfully - %1 (%2 %3 exts:%4)!</translation>
        </message>
        <message>
            <source>Try to check %1 via %3 ...</source>
            <translation>Try to check %1 via %3 ...</translation>
        </message>
        <message>
            <source>Checked successfully - %1!</source>
            <translation>Checked successfully - %1!</translation>
        </message>
        <message>
            <source>Device ADC error code: %1</source>
            <translation>Device ADC error code: %1</translation>
        </message>
        <message>
            <source>The ADC is overloaded. Flags: 0x%1</source>
            <translation>The ADC is overloaded. Flags: 0x%1</translation>
        </message>
        <message>
            <source>Error of writing configuration to EEPROM.</source>
            <translation>Error of writing configuration to EEPROM.</translation>
        </message>
        <message>
            <source>Device configuration is restored (from the secondary page).</source>
            <translation>Device configuration is restored (from the secondary page).</translation>
        </message>
        <message>
            <source>Error of writing the device HART_UID to the EEPROM</source>
            <translation>Error of writing the device HART_UID to the EEPROM</translation>
        </message>
        <message>
            <source>Factory device number is restored (from the sub-page).</source>
            <translation>Factory device number is restored (from the sub-page).</translation>
        </message>
        <message>
            <source>Device specific status: </source>
            <translation>Device specific status: </translation>
        </message>
        <message>
            <source>Device requires maintenance.</source>
            <translation>Device requires maintenance.</translation>
        </message>
        <message>
            <source>Device variable is in an Alarm state.</source>
            <translation>Device variable is in an Alarm state.</translation>
        </message>
        <message>
            <source>Non-Volatile Memory Defect.</source>
            <translation>Non-Volatile Memory Defect.</translation>
        </message>
        <message>
            <source>Volatile Memory Defect.</source>
            <translation>Volatile Memory Defect.</translation>
        </message>
        <message>
            <source>Voltage Conditions Out of Range.</source>
            <translation>Voltage Conditions Out of Range.</translation>
        </message>
        <message>
            <source>Additional status info:</source>
            <translation>Additional status info:</translation>
        </message>
        <message>
            <source>device identifier</source>
            <translation>device identifier</translation>
        </message>
        <message>
            <source>PV</source>
            <translation>PV</translation>
        </message>
        <message>
            <source>output current</source>
            <translation>output current</translation>
        </message>
        <message>
            <source>device variables &amp; output current</source>
            <translation>device variables &amp; output current</translation>
        </message>
        <message>
            <source>polling address</source>
            <translation>polling address</translation>
        </message>
        <message>
            <source>dynamic variable classifications</source>
            <translation>dynamic variable classifications</translation>
        </message>
        <message>
            <source>message</source>
            <translation>message</translation>
        </message>
        <message>
            <source>tag, descriptor, data</source>
            <translation>tag, descriptor, data</translation>
        </message>
        <message>
            <source>PV sensor info (number &amp; range)</source>
            <translation>PV sensor info (number &amp; range)</translation>
        </message>
        <message>
            <source>output info (range &amp; damping time)</source>
            <translation>output info (range &amp; damping time)</translation>
        </message>
        <message>
            <source>final assembly number</source>
            <translation>final assembly number</translation>
        </message>
        <message>
            <source>long tag</source>
            <translation>long tag</translation>
        </message>
        <message>
            <source>device status info</source>
            <translation>device status info</translation>
        </message>
        <message>
            <source>dynamic variable assignments</source>
            <translation>dynamic variable assignments</translation>
        </message>
        <message>
            <source>find device</source>
            <translation>find device</translation>
        </message>
        <message>
            <source>Device command version is 5. Command #%1 not supported</source>
            <translation>Device command version is 5. Command #%1 not supported</translation>
        </message>
        <message>
            <source>long tag: '</source>
            <translation>long tag: '</translation>
        </message>
        <message>
            <source>get device variables with status</source>
            <translation>get device variables with status</translation>
        </message>
        <message>
            <source>get device identifier by tag</source>
            <translation>get device identifier by tag</translation>
        </message>
        <message>
            <source>get device identifier by long tag</source>
            <translation>get device identifier by long tag</translation>
        </message>
        <message>
            <source>get device variables</source>
            <translation>get device variables</translation>
        </message>
        <message>
            <source>damping value</source>
            <translation>damping value</translation>
        </message>
        <message>
            <source>range (min / max)</source>
            <translation>range (min / max)</translation>
        </message>
        <message>
            <source>PV as upper range value</source>
            <translation>PV as upper range value</translation>
        </message>
        <message>
            <source>PV as lower range value</source>
            <translation>PV as lower range value</translation>
        </message>
        <message>
            <source>reset config changed flag </source>
            <translation>reset config changed flag </translation>
        </message>
        <message>
            <source>set fixed current</source>
            <translation>set fixed current</translation>
        </message>
        <message>
            <source>start device self test</source>
            <translation>start device self test</translation>
        </message>
        <message>
            <source>reset device</source>
            <translation>reset device</translation>
        </message>
        <message>
            <source>adjust zero</source>
            <translation>adjust zero</translation>
        </message>
        <message>
            <source>PV unit code</source>
            <translation>PV unit code</translation>
        </message>
        <message>
            <source>adjust current 4 mA</source>
            <translation>adjust current 4 mA</translation>
        </message>
        <message>
            <source>adjust current 20 mA</source>
            <translation>adjust current 20 mA</translation>
        </message>
        <message>
            <source>PV transfer function</source>
            <translation>PV transfer function</translation>
        </message>
        <message>
            <source>reset additional status flag </source>
            <translation>reset additional status flag </translation>
        </message>
        <message>
            <source>sensor number</source>
            <translation>sensor number</translation>
        </message>
        <message>
            <source>device variable units</source>
            <translation>device variable units</translation>
        </message>
        <message>
            <source>get device variable information</source>
            <translation>get device variable information</translation>
        </message>
        <message>
            <source>response preambles count</source>
            <translation>response preambles count</translation>
        </message>
        <message>
            <source>set write protection by HART protocol</source>
            <translation>set write protection by HART protocol</translation>
        </message>
        <message>
            <source>metrology access</source>
            <translation>metrology access</translation>
        </message>
        <message>
            <source>write factory number</source>
            <translation>write factory number</translation>
        </message>
        <message>
            <source>*** cmdData != response</source>
            <translation>*** cmdData != response</translation>
        </message>
        <message>
            <source>the device '%1' has no protected function '%2' (cmd=%3)</source>
            <translation>the device '%1' has no protected function '%2' (cmd=%3)</translation>
        </message>
        <message>
            <source>*** metrology access stays open</source>
            <translation>*** metrology access stays open</translation>
        </message>
        <message>
            <source>*** metrology access is not open</source>
            <translation>*** metrology access is not open</translation>
        </message>
        <message>
            <source>the factory number must have 3 bytes, not %1</source>
            <translation>the factory number must have 3 bytes, not %1</translation>
        </message>
        <message>
            <source>MOm</source>
            <translation>MOm</translation>
        </message>
        <message>
            <source>mg/l</source>
            <translation>mg/l</translation>
        </message>
        <message>
            <source>FNU</source>
            <translation>FNU</translation>
        </message>
        <message>
            <source>FTU</source>
            <translation>FTU</translation>
        </message>
        <message>
            <source>NTU</source>
            <translation>NTU</translation>
        </message>
        <message>
            <source>inchWS</source>
            <translation>inchWS</translation>
        </message>
        <message>
            <source>inchHg</source>
            <translation>inchHg</translation>
        </message>
        <message>
            <source>mmWS</source>
            <translation>mmWS</translation>
        </message>
        <message>
            <source>mmHg</source>
            <translation>mmHg</translation>
        </message>
        <message>
            <source>lb/inch2</source>
            <translation>lb/inch2</translation>
        </message>
        <message>
            <source>bar</source>
            <translation>bar</translation>
        </message>
        <message>
            <source>mbar</source>
            <translation>mbar</translation>
        </message>
        <message>
            <source>kgf/sm2</source>
            <translation>kgf/sm2</translation>
        </message>
        <message>
            <source>Pa</source>
            <translation>Pa</translation>
        </message>
        <message>
            <source>kPa</source>
            <translation>kPa</translation>
        </message>
        <message>
            <source>l/min</source>
            <translation>l/min</translation>
        </message>
        <message>
            <source>m3/h</source>
            <translation>m3/h</translation>
        </message>
        <message>
            <source>l/s</source>
            <translation>l/s</translation>
        </message>
        <message>
            <source>m3/s</source>
            <translation>m3/s</translation>
        </message>
        <message>
            <source>m3/day</source>
            <translation>m3/day</translation>
        </message>
        <message>
            <source>mV</source>
            <translation>mV</translation>
        </message>
        <message>
            <source>Om</source>
            <translation>Om</translation>
        </message>
        <message>
            <source>mA</source>
            <translation>mA</translation>
        </message>
        <message>
            <source>gallons</source>
            <translation>gallons</translation>
        </message>
        <message>
            <source>l</source>
            <translation>l</translation>
        </message>
        <message>
            <source>m3</source>
            <translation>m3</translation>
        </message>
        <message>
            <source>m</source>
            <translation>m</translation>
        </message>
        <message>
            <source>bbls</source>
            <translation>bbls</translation>
        </message>
        <message>
            <source>inches</source>
            <translation>inches</translation>
        </message>
        <message>
            <source>cm</source>
            <translation>cm</translation>
        </message>
        <message>
            <source>mm</source>
            <translation>mm</translation>
        </message>
        <message>
            <source>minutes</source>
            <translation>minutes</translation>
        </message>
        <message>
            <source>seconds</source>
            <translation>seconds</translation>
        </message>
        <message>
            <source>hours</source>
            <translation>hours</translation>
        </message>
        <message>
            <source>days</source>
            <translation>days</translation>
        </message>
        <message>
            <source>mcS</source>
            <translation>mcS</translation>
        </message>
        <message>
            <source>%</source>
            <translation>%</translation>
        </message>
        <message>
            <source>V</source>
            <translation>V</translation>
        </message>
        <message>
            <source>pH</source>
            <translation>pH</translation>
        </message>
        <message>
            <source>g</source>
            <translation>g</translation>
        </message>
        <message>
            <source>kg</source>
            <translation>kg</translation>
        </message>
        <message>
            <source>tons</source>
            <translation>tons</translation>
        </message>
        <message>
            <source>mS/cm</source>
            <translation>mS/cm</translation>
        </message>
        <message>
            <source>mcS/cm</source>
            <translation>mcS/cm</translation>
        </message>
        <message>
            <source>g/s</source>
            <translation>g/s</translation>
        </message>
        <message>
            <source>g/min</source>
            <translation>g/min</translation>
        </message>
        <message>
            <source>g/h</source>
            <translation>g/h</translation>
        </message>
        <message>
            <source>kg/s</source>
            <translation>kg/s</translation>
        </message>
        <message>
            <source>kg/min</source>
            <translation>kg/min</translation>
        </message>
        <message>
            <source>kg/h</source>
            <translation>kg/h</translation>
        </message>
        <message>
            <source>g/cm3</source>
            <translation>g/cm3</translation>
        </message>
        <message>
            <source>kg/m3</source>
            <translation>kg/m3</translation>
        </message>
        <message>
            <source>g/ml</source>
            <translation>g/ml</translation>
        </message>
        <message>
            <source>kg/l</source>
            <translation>kg/l</translation>
        </message>
        <message>
            <source>g/l</source>
            <translation>g/l</translation>
        </message>
        <message>
            <source>in3</source>
            <translation>in3</translation>
        </message>
        <message>
            <source>m3/min</source>
            <translation>m3/min</translation>
        </message>
        <message>
            <source>bbls/s</source>
            <translation>bbls/s</translation>
        </message>
        <message>
            <source>bbls/min</source>
            <translation>bbls/min</translation>
        </message>
        <message>
            <source>bbls/h</source>
            <translation>bbls/h</translation>
        </message>
        <message>
            <source>bbls/day</source>
            <translation>bbls/day</translation>
        </message>
        <message>
            <source>l/h</source>
            <translation>l/h</translation>
        </message>
        <message>
            <source>ppm</source>
            <translation>ppm</translation>
        </message>
        <message>
            <source>mcg/l</source>
            <translation>mcg/l</translation>
        </message>
        <message>
            <source>mcg/m3</source>
            <translation>mcg/m3</translation>
        </message>
        <message>
            <source>kOm</source>
            <translation>kOm</translation>
        </message>
        <message>
            <source>ppb</source>
            <translation>ppb</translation>
        </message>
        <message>
            <source>MPa</source>
            <translation>MPa</translation>
        </message>
        <message>
            <source>Not Classified</source>
            <translation>Not Classified</translation>
        </message>
        <message>
            <source>Temperature</source>
            <translation>Temperature</translation>
        </message>
        <message>
            <source>Pressure</source>
            <translation>Pressure</translation>
        </message>
        <message>
            <source>Volumetric Flow</source>
            <translation>Volumetric Flow</translation>
        </message>
        <message>
            <source>Velocity</source>
            <translation>Velocity</translation>
        </message>
        <message>
            <source>Volume</source>
            <translation>Volume</translation>
        </message>
        <message>
            <source>Length</source>
            <translation>Length</translation>
        </message>
        <message>
            <source>Time</source>
            <translation>Time</translation>
        </message>
        <message>
            <source>Mass</source>
            <translation>Mass</translation>
        </message>
        <message>
            <source>Mass Flow</source>
            <translation>Mass Flow</translation>
        </message>
        <message>
            <source>Mass Per Volume</source>
            <translation>Mass Per Volume</translation>
        </message>
        <message>
            <source>Viscosity</source>
            <translation>Viscosity</translation>
        </message>
        <message>
            <source>Angular Velocity</source>
            <translation>Angular Velocity</translation>
        </message>
        <message>
            <source>Area</source>
            <translation>Area</translation>
        </message>
        <message>
            <source>Energy (Work)</source>
            <translation>Energy (Work)</translation>
        </message>
        <message>
            <source>Force</source>
            <translation>Force</translation>
        </message>
        <message>
            <source>Power</source>
            <translation>Power</translation>
        </message>
        <message>
            <source>Frequency</source>
            <translation>Frequency</translation>
        </message>
        <message>
            <source>Analytical</source>
            <translation>Analytical</translation>
        </message>
        <message>
            <source>Capacitance</source>
            <translation>Capacitance</translation>
        </message>
        <message>
            <source>Emf</source>
            <translation>Emf</translation>
        </message>
        <message>
            <source>Current</source>
            <translation>Current</translation>
        </message>
        <message>
            <source>Resistance</source>
            <translation>Resistance</translation>
        </message>
        <message>
            <source>Angle</source>
            <translation>Angle</translation>
        </message>
        <message>
            <source>Conductance</source>
            <translation>Conductance</translation>
        </message>
        <message>
            <source>Volume Per Volume</source>
            <translation>Volume Per Volume</translation>
        </message>
        <message>
            <source>Volume Per Mass</source>
            <translation>Volume Per Mass</translation>
        </message>
        <message>
            <source>Concentration</source>
            <translation>Concentration</translation>
        </message>
        <message>
            <source>Valve Actuator</source>
            <translation>Valve Actuator</translation>
        </message>
        <message>
            <source>Level</source>
            <translation>Level</translation>
        </message>
        <message>
            <source>Vortex Flow</source>
            <translation>Vortex Flow</translation>
        </message>
        <message>
            <source>Mag Flow</source>
            <translation>Mag Flow</translation>
        </message>
        <message>
            <source>Coriolis Flow</source>
            <translation>Coriolis Flow</translation>
        </message>
        <message>
            <source>Turbidity</source>
            <translation>Turbidity</translation>
        </message>
        <message>
            <source>Not used</source>
            <translation>Not used</translation>
        </message>
        <message>
            <source>Reserved</source>
            <translation>Reserved</translation>
        </message>
        <message>
            <source>Valve / Actuator</source>
            <translation>Valve / Actuator</translation>
        </message>
        <message>
            <source>Simple PID Control</source>
            <translation>Simple PID Control</translation>
        </message>
        <message>
            <source>Conductivity</source>
            <translation>Conductivity</translation>
        </message>
        <message>
            <source>Totalizer</source>
            <translation>Totalizer</translation>
        </message>
        <message>
            <source>Not Used</source>
            <translation>Not Used</translation>
        </message>
        <message>
            <source>Bad</source>
            <translation>Bad</translation>
        </message>
        <message>
            <source>Poor Accuracy</source>
            <translation>Poor Accuracy</translation>
        </message>
        <message>
            <source>Manual/Fixed</source>
            <translation>Manual/Fixed</translation>
        </message>
        <message>
            <source>Good</source>
            <translation>Good</translation>
        </message>
        <message>
            <source>Not Limited</source>
            <translation>Not Limited</translation>
        </message>
        <message>
            <source>Low Limited</source>
            <translation>Low Limited</translation>
        </message>
        <message>
            <source>High Limited</source>
            <translation>High Limited</translation>
        </message>
        <message>
            <source>Constant</source>
            <translation>Constant</translation>
        </message>
        <message>
            <source>Manufacturer Specific</source>
            <translation>Manufacturer Specific</translation>
        </message>
        <message>
            <source>High</source>
            <translation>High</translation>
        </message>
        <message>
            <source>Low</source>
            <translation>Low</translation>
        </message>
        <message>
            <source>Hold Last Output Value</source>
            <translation>Hold Last Output Value</translation>
        </message>
        <message>
            <source>None</source>
            <translation>None</translation>
        </message>
        <message>
            <source>Unknown</source>
            <translation>Unknown</translation>
        </message>
        <message>
            <source>Special</source>
            <translation>Special</translation>
        </message>
    </context>
    <context>
        <name>DeviceAddDialog</name>
        <message>
            <source>Select device template...</source>
            <translation>Select device template...</translation>
        </message>
        <message>
            <source>Name</source>
            <translation>Name</translation>
        </message>
        <message>
            <source>Template</source>
            <translation>Template</translation>
        </message>
        <message>
            <source>Producer</source>
            <translation>Producer</translation>
        </message>
        <message>
            <source>Description</source>
            <translation>Description</translation>
        </message>
        <message>
            <source>Version</source>
            <translation>Version</translation>
        </message>
        <message>
            <source>TCV-C</source>
            <translation>TCV-C</translation>
        </message>
        <message>
            <source>Orvena</source>
            <translation>Orvena</translation>
        </message>
        <message>
            <source>Temperature converter</source>
            <translation>Temperature converter</translation>
        </message>
        <message>
            <source>1.0</source>
            <translation>1.0</translation>
        </message>
        <message>
            <source>DX-C</source>
            <translation>DX-C</translation>
        </message>
        <message>
            <source>QP-1C</source>
            <translation>QP-1C</translation>
        </message>
        <message>
            <source>Pressure converter</source>
            <translation>Pressure converter</translation>
        </message>
        <message>
            <source>pH-7702</source>
            <translation>pH-7702</translation>
        </message>
        <message>
            <source>pH-meter</source>
            <translation>pH-meter</translation>
        </message>
        <message>
            <source>General</source>
            <translation>General</translation>
        </message>
        <message>
            <source>Anyone</source>
            <translation>Anyone</translation>
        </message>
        <message>
            <source>Only universal and common (partly) functions</source>
            <translation>Only universal and common (partly) functions</translation>
        </message>
    </context>
    <context>
        <name>DeviceWidget</name>
        <message>
            <source>Custom</source>
            <translation>Custom</translation>
        </message>
        <message>
            <source>Measurement</source>
            <translation>Measurement</translation>
        </message>
        <message>
            <source>Metrologic</source>
            <translation>Metrologic</translation>
        </message>
        <message>
            <source>Hart Log</source>
            <translation>Hart Log</translation>
        </message>
    </context>
    <context>
        <name>FactoryNumberDialog</name>
        <message>
            <source>Factory number</source>
            <translation>Factory number</translation>
        </message>
        <message>
            <source>Device:</source>
            <translation>Device:</translation>
        </message>
        <message>
            <source>Long address:</source>
            <translation>Long address:</translation>
        </message>
        <message>
            <source>Access code:</source>
            <translation>Access code:</translation>
        </message>
        <message>
            <source>Factory number:</source>
            <translation>Factory number:</translation>
        </message>
        <message>
            <source>Write</source>
            <translation>Write</translation>
        </message>
        <message>
            <source>not identified</source>
            <translation>not identified</translation>
        </message>
        <message>
            <source>The access code is a number from 0 to 4294967295.</source>
            <translation>The access code is a number from 0 to 4294967295.</translation>
        </message>
        <message>
            <source>The factory number is a number from 0 to %1.</source>
            <translation>The factory number is a number from 0 to %1.</translation>
        </message>
        <message>
            <source>The access code was refused: %1</source>
            <translation>The access code was refused: %1</translation>
        </message>
        <message>
            <source>Factory number %1 written. Long address: %2.</source>
            <translation>Factory number %1 written. Long address: %2.</translation>
        </message>
        <message>
            <source>The factory number was not written: %1</source>
            <translation>The factory number was not written: %1</translation>
        </message>
        <message>
            <source>Access was not closed: %1</source>
            <translation>Access was not closed: %1</translation>
        </message>
    </context>
    <context>
        <name>FileThread</name>
        <message>
            <source>Name is empty.</source>
            <translation>Name is empty.</translation>
        </message>
        <message>
            <source>Date is invalid.</source>
            <translation>Date is invalid.</translation>
        </message>
        <message>
            <source>Can't create archive path %1</source>
            <translation>Can't create archive path %1</translation>
        </message>
        <message>
            <source>Can't open %1 for write, error code %2</source>
            <translation>Can't open %1 for write, error code %2</translation>
        </message>
        <message>
            <source>Write error in file %1, error code %2</source>
            <translation>Write error in file %1, error code %2</translation>
        </message>
        <message>
            <source>Reinitialization error - File %1 was deleted, %2</source>
            <translation>Reinitialization error - File %1 was deleted, %2</translation>
        </message>
        <message>
            <source>Can't open %1 for append, error code %2</source>
            <translation>Can't open %1 for append, error code %2</translation>
        </message>
    </context>
    <context>
        <name>FindDeviceDialog</name>
        <message>
            <source>Search device ...</source>
            <translation>Search device ...</translation>
        </message>
        <message>
            <source>Ports</source>
            <translation>Ports</translation>
        </message>
        <message>
            <source>The lines to scan: every ticked line is scanned, in this order.</source>
            <translation>The lines to scan: every ticked line is scanned, in this order.</translation>
        </message>
        <message>
            <source>Open port...</source>
            <translation>Open port...</translation>
        </message>
        <message>
            <source>Choose a serial line of this computer, or type the path of one (a pseudo-terminal, /dev/serial/by-id/...) and press Enter: it joins the list, ticked.</source>
            <translation>Choose a serial line of this computer, or type the path of one (a pseudo-terminal, /dev/serial/by-id/...) and press Enter: it joins the list, ticked.</translation>
        </message>
        <message>
            <source>Refresh Port List</source>
            <translation>Refresh Port List</translation>
        </message>
        <message>
            <source>Address from:</source>
            <translation>Address from:</translation>
        </message>
        <message>
            <source>to:</source>
            <translation>to:</translation>
        </message>
        <message>
            <source>The scan stops before this address: 16 scans up to 15, 64 scans every polling address.</source>
            <translation>The scan stops before this address: 16 scans up to 15, 64 scans every polling address.</translation>
        </message>
        <message>
            <source>Response timeout:</source>
            <translation>Response timeout:</translation>
        </message>
        <message>
            <source>How long to wait for the first byte of an answer; the default is 370 ms, and an answer ends after a pause of half this time (50 ms by default).</source>
            <translation>How long to wait for the first byte of an answer; the default is 370 ms, and an answer ends after a pause of half this time (50 ms by default).</translation>
        </message>
        <message>
            <source>default</source>
            <translation>default</translation>
        </message>
        <message>
            <source>ms</source>
            <translation>ms</translation>
        </message>
        <message>
            <source>Start Find</source>
            <translation>Start Find</translation>
        </message>
        <message>
            <source>Port</source>
            <translation>Port</translation>
        </message>
        <message>
            <source>Address</source>
            <translation>Address</translation>
        </message>
        <message>
            <source>Long Address</source>
            <translation>Long Address</translation>
        </message>
        <message>
            <source>Tag</source>
            <translation>Tag</translation>
        </message>
        <message>
            <source>Description</source>
            <translation>Description</translation>
        </message>
        <message>
            <source>Date</source>
            <translation>Date</translation>
        </message>
        <message>
            <source>Template</source>
            <translation>Template</translation>
        </message>
        <message>
            <source>Scanning ...</source>
            <translation>Scanning ...</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
        <message>
            <source>Cannot open the port %1:
%2</source>
            <translation>Cannot open the port %1:
%2</translation>
        </message>
        <message>
            <source>Search by address %1 via %2 ...</source>
            <translation>Search by address %1 via %2 ...</translation>
        </message>
    </context>
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
        <name>HartPort</name>
        <message>
            <source>Response command parsing error: </source>
            <translation>Response command parsing error: </translation>
        </message>
        <message>
            <source>Invalid command response: </source>
            <translation>Invalid command response: </translation>
        </message>
        <message>
            <source>Invalid response lenght of command ZERO.</source>
            <translation>Invalid response lenght of command ZERO.</translation>
        </message>
        <message>
            <source>Request timeout</source>
            <translation>Request timeout</translation>
        </message>
        <message>
            <source>Response timeout (%1ms)</source>
            <translation>Response timeout (%1ms)</translation>
        </message>
    </context>
    <context>
        <name>HelpViewer</name>
        <message>
            <source>Help</source>
            <translation>Help</translation>
        </message>
        <message>
            <source>Close</source>
            <translation>Close</translation>
        </message>
        <message>
            <source>Can't open help file</source>
            <translation>Can't open help file</translation>
        </message>
    </context>
    <context>
        <name>LogWidget</name>
        <message>
            <source>HART log</source>
            <translation>HART log</translation>
        </message>
        <message>
            <source>Lines:</source>
            <translation>Lines:</translation>
        </message>
        <message>
            <source>Lines kept in the view</source>
            <translation>Lines kept in the view</translation>
        </message>
        <message>
            <source>Search:</source>
            <translation>Search:</translation>
        </message>
        <message>
            <source>Find previous</source>
            <translation>Find previous</translation>
        </message>
        <message>
            <source>Up</source>
            <translation>Up</translation>
        </message>
        <message>
            <source>Find next</source>
            <translation>Find next</translation>
        </message>
        <message>
            <source>Down</source>
            <translation>Down</translation>
        </message>
        <message>
            <source>Clear</source>
            <translation>Clear</translation>
        </message>
        <message>
            <source>Save As...</source>
            <translation>Save As...</translation>
        </message>
        <message>
            <source>Logs (*.log);;All files (*.*)</source>
            <translation>Logs (*.log);;All files (*.*)</translation>
        </message>
        <message>
            <source>Save report</source>
            <translation>Save report</translation>
        </message>
        <message>
            <source>Cannot open file for writing log: %1</source>
            <translation>Cannot open file for writing log: %1</translation>
        </message>
    </context>
    <context>
        <name>MainDeviceWidget</name>
        <message>
            <source>Adjustment</source>
            <translation>Adjustment</translation>
        </message>
        <message>
            <source>You must first read the device configuration!</source>
            <translation>You must first read the device configuration!</translation>
        </message>
        <message>
            <source>Write changes to device</source>
            <translation>Write changes to device</translation>
        </message>
        <message>
            <source>The device is write-protected!</source>
            <translation>The device is write-protected!</translation>
        </message>
        <message>
            <source>Changes</source>
            <translation>Changes</translation>
        </message>
        <message>
            <source>Do you want to save your changes of the settings in the device?</source>
            <translation>Do you want to save your changes of the settings in the device?</translation>
        </message>
        <message>
            <source>You are in metrology mode and really want to record changes to the settings in the device?</source>
            <translation>You are in metrology mode and really want to record changes to the settings in the device?</translation>
        </message>
        <message>
            <source>Write device configuration</source>
            <translation>Write device configuration</translation>
        </message>
        <message>
            <source>Fixed current setting</source>
            <translation>Fixed current setting</translation>
        </message>
        <message>
            <source>Current adjustment 4 mA</source>
            <translation>Current adjustment 4 mA</translation>
        </message>
        <message>
            <source>Current adjustment 20 mA</source>
            <translation>Current adjustment 20 mA</translation>
        </message>
        <message>
            <source>Manufacturer setting</source>
            <translation>Manufacturer setting</translation>
        </message>
        <message>
            <source>Do you really want to save current device settings as manufacturer setting?
Previously saved device settings will be lost!</source>
            <translation>Do you really want to save current device settings as manufacturer setting?
Previously saved device settings will be lost!</translation>
        </message>
        <message>
            <source>Do you really want to restore manufacturer settings ?
All current device settings will be lost!</source>
            <translation>Do you really want to restore manufacturer settings ?
All current device settings will be lost!</translation>
        </message>
        <message>
            <source>Manufacturer settings</source>
            <translation>Manufacturer settings</translation>
        </message>
        <message>
            <source>Do you want to write current
Primary Variable value=%1 %2
as Upper Range Value ?</source>
            <translation>Do you want to write current
Primary Variable value=%1 %2
as Upper Range Value ?</translation>
        </message>
        <message>
            <source>Do you want to write current
Primary Variable value=%1 %2
as Lower Range Value ?</source>
            <translation>Do you want to write current
Primary Variable value=%1 %2
as Lower Range Value ?</translation>
        </message>
        <message>
            <source>Setting the conversion range</source>
            <translation>Setting the conversion range</translation>
        </message>
        <message>
            <source>Setting the high range limit</source>
            <translation>Setting the high range limit</translation>
        </message>
        <message>
            <source>Setting the lower range limit</source>
            <translation>Setting the lower range limit</translation>
        </message>
    </context>
    <context>
        <name>MainWindow</name>
        <message>
            <source>Objects</source>
            <translation>Objects</translation>
        </message>
        <message>
            <source>File</source>
            <translation>File</translation>
        </message>
        <message>
            <source>Edit</source>
            <translation>Edit</translation>
        </message>
        <message>
            <source>Tools</source>
            <translation>Tools</translation>
        </message>
        <message>
            <source>Help</source>
            <translation>Help</translation>
        </message>
        <message>
            <source>Tool bar</source>
            <translation>Tool bar</translation>
        </message>
        <message>
            <source>New</source>
            <translation>New</translation>
        </message>
        <message>
            <source>Open</source>
            <translation>Open</translation>
        </message>
        <message>
            <source>Save</source>
            <translation>Save</translation>
        </message>
        <message>
            <source>Save As</source>
            <translation>Save As</translation>
        </message>
        <message>
            <source>Exit</source>
            <translation>Exit</translation>
        </message>
        <message>
            <source>Add</source>
            <translation>Add</translation>
        </message>
        <message>
            <source>Remove</source>
            <translation>Remove</translation>
        </message>
        <message>
            <source>Copy</source>
            <translation>Copy</translation>
        </message>
        <message>
            <source>Paste</source>
            <translation>Paste</translation>
        </message>
        <message>
            <source>Save Device As Template</source>
            <translation>Save Device As Template</translation>
        </message>
        <message>
            <source>Find</source>
            <translation>Find</translation>
        </message>
        <message>
            <source>Test</source>
            <translation>Test</translation>
        </message>
        <message>
            <source>Settings</source>
            <translation>Settings</translation>
        </message>
        <message>
            <source>Factory Number...</source>
            <translation>Factory Number...</translation>
        </message>
        <message>
            <source>Configuration files (*.cfg);;All files (*)</source>
            <translation>Configuration files (*.cfg);;All files (*)</translation>
        </message>
        <message>
            <source>Ports &amp; Devices</source>
            <translation>Ports &amp; Devices</translation>
        </message>
        <message>
            <source>Version: %1</source>
            <translation>Version: %1</translation>
        </message>
        <message>
            <source>Calvane</source>
            <translation>Calvane</translation>
        </message>
        <message>
            <source>Orvena. </source>
            <translation>Orvena. </translation>
        </message>
        <message>
            <source>Untitled</source>
            <translation>Untitled</translation>
        </message>
        <message>
            <source>%1 - [*]%2</source>
            <translation>%1 - [*]%2</translation>
        </message>
        <message>
            <source>ports: %1, devices: %2</source>
            <translation>ports: %1, devices: %2</translation>
        </message>
        <message>
            <source>Error</source>
            <translation>Error</translation>
        </message>
        <message>
            <source>can't remove file '%1', '%2'</source>
            <translation>can't remove file '%1', '%2'</translation>
        </message>
        <message>
            <source>Backup config file</source>
            <translation>Backup config file</translation>
        </message>
        <message>
            <source>can't copy file '%1' to '%2', '%3'</source>
            <translation>can't copy file '%1' to '%2', '%3'</translation>
        </message>
        <message>
            <source>backup file '%1' not exists!</source>
            <translation>backup file '%1' not exists!</translation>
        </message>
        <message>
            <source>Rollback config file</source>
            <translation>Rollback config file</translation>
        </message>
        <message>
            <source>Config file write error!</source>
            <translation>Config file write error!</translation>
        </message>
        <message>
            <source>Configuration saved on %1</source>
            <translation>Configuration saved on %1</translation>
        </message>
        <message>
            <source>Do you want to save your configuration?</source>
            <translation>Do you want to save your configuration?</translation>
        </message>
        <message>
            <source>Save As..</source>
            <translation>Save As..</translation>
        </message>
        <message>
            <source>Configuration saved on %1 in file %2</source>
            <translation>Configuration saved on %1 in file %2</translation>
        </message>
        <message>
            <source>Configuration has been modified.
Do you want to save your changes?</source>
            <translation>Configuration has been modified.
Do you want to save your changes?</translation>
        </message>
        <message>
            <source>Are you sure you want to exit the application ?</source>
            <translation>Are you sure you want to exit the application ?</translation>
        </message>
        <message>
            <source>Open cfg..</source>
            <translation>Open cfg..</translation>
        </message>
        <message>
            <source>Port %1</source>
            <translation>Port %1</translation>
        </message>
        <message>
            <source>Select an instrument of our maker to write its factory number.</source>
            <translation>Select an instrument of our maker to write its factory number.</translation>
        </message>
        <message>
            <source>The device %1 has no factory number.</source>
            <translation>The device %1 has no factory number.</translation>
        </message>
        <message>
            <source>%1 at address %2 of %3</source>
            <translation>%1 at address %2 of %3</translation>
        </message>
        <message>
            <source>These devices are in the tree already and were not added again:
%1</source>
            <translation>These devices are in the tree already and were not added again:
%1</translation>
        </message>
        <message>
            <source>Wait until the exchange with the device has ended</source>
            <translation>Wait until the exchange with the device has ended</translation>
        </message>
        <message>
            <source>The device %1 is being polled.
Stop polling before searching the lines.</source>
            <translation>The device %1 is being polled.
Stop polling before searching the lines.</translation>
        </message>
    </context>
    <context>
        <name>MeasureWidget</name>
        <message>
            <source>Measurement</source>
            <translation>Measurement</translation>
        </message>
        <message>
            <source>Polling</source>
            <translation>Polling</translation>
        </message>
        <message>
            <source>Start</source>
            <translation>Start</translation>
        </message>
        <message>
            <source>Start or stop polling the device (command 3)</source>
            <translation>Start or stop polling the device (command 3)</translation>
        </message>
        <message>
            <source>Polling period</source>
            <translation>Polling period</translation>
        </message>
        <message>
            <source>Write archive</source>
            <translation>Write archive</translation>
        </message>
        <message>
            <source>Write every reading to a CSV file in the archive folder</source>
            <translation>Write every reading to a CSV file in the archive folder</translation>
        </message>
        <message>
            <source> lines</source>
            <translation> lines</translation>
        </message>
        <message>
            <source>Readings gathered before each write to the file</source>
            <translation>Readings gathered before each write to the file</translation>
        </message>
        <message>
            <source>Follow</source>
            <translation>Follow</translation>
        </message>
        <message>
            <source>Scroll the table and the plot to the last reading</source>
            <translation>Scroll the table and the plot to the last reading</translation>
        </message>
        <message>
            <source>Last reading</source>
            <translation>Last reading</translation>
        </message>
        <message>
            <source>PV</source>
            <translation>PV</translation>
        </message>
        <message>
            <source>Show PV on the plot</source>
            <translation>Show PV on the plot</translation>
        </message>
        <message>
            <source>Current</source>
            <translation>Current</translation>
        </message>
        <message>
            <source>mA</source>
            <translation>mA</translation>
        </message>
        <message>
            <source>SV</source>
            <translation>SV</translation>
        </message>
        <message>
            <source>Show SV on the plot</source>
            <translation>Show SV on the plot</translation>
        </message>
        <message>
            <source>TV</source>
            <translation>TV</translation>
        </message>
        <message>
            <source>Show TV on the plot</source>
            <translation>Show TV on the plot</translation>
        </message>
        <message>
            <source>QV</source>
            <translation>QV</translation>
        </message>
        <message>
            <source>Show QV on the plot</source>
            <translation>Show QV on the plot</translation>
        </message>
        <message>
            <source>Plot view</source>
            <translation>Plot view</translation>
        </message>
        <message>
            <source>Y:</source>
            <translation>Y:</translation>
        </message>
        <message>
            <source>From:</source>
            <translation>From:</translation>
        </message>
        <message>
            <source>To:</source>
            <translation>To:</translation>
        </message>
        <message>
            <source>Span:</source>
            <translation>Span:</translation>
        </message>
        <message>
            <source> min</source>
            <translation> min</translation>
        </message>
        <message>
            <source>The time the plot shows when polling starts</source>
            <translation>The time the plot shows when polling starts</translation>
        </message>
        <message>
            <source>Apply</source>
            <translation>Apply</translation>
        </message>
        <message>
            <source>Show the plot between the edges above</source>
            <translation>Show the plot between the edges above</translation>
        </message>
        <message>
            <source>Show all</source>
            <translation>Show all</translation>
        </message>
        <message>
            <source>Show every point of the plot</source>
            <translation>Show every point of the plot</translation>
        </message>
        <message>
            <source>Save table...</source>
            <translation>Save table...</translation>
        </message>
        <message>
            <source>Save the readings of the table as a CSV file</source>
            <translation>Save the readings of the table as a CSV file</translation>
        </message>
        <message>
            <source>Save plot...</source>
            <translation>Save plot...</translation>
        </message>
        <message>
            <source>Save the plot as a PNG picture, with a black and white copy</source>
            <translation>Save the plot as a PNG picture, with a black and white copy</translation>
        </message>
        <message>
            <source>Clear</source>
            <translation>Clear</translation>
        </message>
        <message>
            <source>Clear the table and the plot</source>
            <translation>Clear the table and the plot</translation>
        </message>
        <message>
            <source>ms</source>
            <translation>ms</translation>
        </message>
        <message>
            <source>s</source>
            <translation>s</translation>
        </message>
        <message>
            <source>min</source>
            <translation>min</translation>
        </message>
        <message>
            <source>h</source>
            <translation>h</translation>
        </message>
        <message>
            <source>Stop</source>
            <translation>Stop</translation>
        </message>
        <message>
            <source>Archive</source>
            <translation>Archive</translation>
        </message>
        <message>
            <source>Min Y value</source>
            <translation>Min Y value</translation>
        </message>
        <message>
            <source>The entered value Min Y (%1) is greater than Max Y (%2)!</source>
            <translation>The entered value Min Y (%1) is greater than Max Y (%2)!</translation>
        </message>
        <message>
            <source>Max Y value</source>
            <translation>Max Y value</translation>
        </message>
        <message>
            <source>The entered value Max Y (%1) less than Min Y (%2)!</source>
            <translation>The entered value Max Y (%1) less than Min Y (%2)!</translation>
        </message>
        <message>
            <source>Min X value</source>
            <translation>Min X value</translation>
        </message>
        <message>
            <source>The entered value Min X (%1) is greater than Max X (%2)!</source>
            <translation>The entered value Min X (%1) is greater than Max X (%2)!</translation>
        </message>
        <message>
            <source>Max X value</source>
            <translation>Max X value</translation>
        </message>
        <message>
            <source>The entered value Max X (%1) less than Min X (%2)!</source>
            <translation>The entered value Max X (%1) less than Min X (%2)!</translation>
        </message>
        <message>
            <source>Clear data...</source>
            <translation>Clear data...</translation>
        </message>
        <message>
            <source>Do you really want to clear ALL data?</source>
            <translation>Do you really want to clear ALL data?</translation>
        </message>
        <message>
            <source>Save As...</source>
            <translation>Save As...</translation>
        </message>
        <message>
            <source>Archives (*.csv);;All files (*.*)</source>
            <translation>Archives (*.csv);;All files (*.*)</translation>
        </message>
        <message>
            <source>Cannot open file for writing: %1</source>
            <translation>Cannot open file for writing: %1</translation>
        </message>
        <message>
            <source>Save File ...</source>
            <translation>Save File ...</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
        <message>
            <source>Save record %1...</source>
            <translation>Save record %1...</translation>
        </message>
        <message>
            <source>Archives (*.png);;All files (*.*)</source>
            <translation>Archives (*.png);;All files (*.*)</translation>
        </message>
    </context>
    <context>
        <name>PH77Device</name>
        <message>
            <source>Temperature sensor short circuit.</source>
            <translation>Temperature sensor short circuit.</translation>
        </message>
        <message>
            <source>Temperature sensor not connected. </source>
            <translation>Temperature sensor not connected. </translation>
        </message>
        <message>
            <source>Ei is out of range.</source>
            <translation>Ei is out of range.</translation>
        </message>
        <message>
            <source>S is out of range. </source>
            <translation>S is out of range. </translation>
        </message>
        <message>
            <source>device configuration (part 1)</source>
            <translation>device configuration (part 1)</translation>
        </message>
        <message>
            <source>device configuration (part 2)</source>
            <translation>device configuration (part 2)</translation>
        </message>
        <message>
            <source>indication range</source>
            <translation>indication range</translation>
        </message>
        <message>
            <source>current graduation values</source>
            <translation>current graduation values</translation>
        </message>
        <message>
            <source>Ei and S ranges</source>
            <translation>Ei and S ranges</translation>
        </message>
        <message>
            <source>adjustment parameters</source>
            <translation>adjustment parameters</translation>
        </message>
        <message>
            <source>electrode parameters</source>
            <translation>electrode parameters</translation>
        </message>
        <message>
            <source>PV filter parameters</source>
            <translation>PV filter parameters</translation>
        </message>
        <message>
            <source>electrode diagnostic on/off</source>
            <translation>electrode diagnostic on/off</translation>
        </message>
        <message>
            <source>temperature measurement mode</source>
            <translation>temperature measurement mode</translation>
        </message>
        <message>
            <source>temperature sensor parameters</source>
            <translation>temperature sensor parameters</translation>
        </message>
        <message>
            <source>temperature filter parameters</source>
            <translation>temperature filter parameters</translation>
        </message>
        <message>
            <source>graduation point</source>
            <translation>graduation point</translation>
        </message>
        <message>
            <source>adjust U</source>
            <translation>adjust U</translation>
        </message>
        <message>
            <source>adjust Rt</source>
            <translation>adjust Rt</translation>
        </message>
        <message>
            <source>adjust Rc</source>
            <translation>adjust Rc</translation>
        </message>
        <message>
            <source>manufacturer settings</source>
            <translation>manufacturer settings</translation>
        </message>
    </context>
    <context>
        <name>PH77Widget</name>
        <message>
            <source>pH meter</source>
            <translation>pH meter</translation>
        </message>
        <message>
            <source>Current state</source>
            <translation>Current state</translation>
        </message>
        <message>
            <source>Configuration</source>
            <translation>Configuration</translation>
        </message>
        <message>
            <source>pH channel</source>
            <translation>pH channel</translation>
        </message>
        <message>
            <source>Measurement mode</source>
            <translation>Measurement mode</translation>
        </message>
        <message>
            <source>What the device measures (command 131)</source>
            <translation>What the device measures (command 131)</translation>
        </message>
        <message>
            <source>Isopotential point Ei, mV</source>
            <translation>Isopotential point Ei, mV</translation>
        </message>
        <message>
            <source>EMF of the electrode at the isopotential point (command 131)</source>
            <translation>EMF of the electrode at the isopotential point (command 131)</translation>
        </message>
        <message>
            <source>Steepness S, mV/pH</source>
            <translation>Steepness S, mV/pH</translation>
        </message>
        <message>
            <source>Steepness of the electrode at 25 °C (command 131)</source>
            <translation>Steepness of the electrode at 25 °C (command 131)</translation>
        </message>
        <message>
            <source>Isopotential point pHi</source>
            <translation>Isopotential point pHi</translation>
        </message>
        <message>
            <source>pH of the isopotential point; the graduation does not change it</source>
            <translation>pH of the isopotential point; the graduation does not change it</translation>
        </message>
        <message>
            <source>The device measures millivolts; the electrode parameters are not used in this mode.</source>
            <translation>The device measures millivolts; the electrode parameters are not used in this mode.</translation>
        </message>
        <message>
            <source>Electrode diagnostics</source>
            <translation>Electrode diagnostics</translation>
        </message>
        <message>
            <source>Test of the resistance of the auxiliary electrode (command 133)</source>
            <translation>Test of the resistance of the auxiliary electrode (command 133)</translation>
        </message>
        <message>
            <source>Sensor serial number</source>
            <translation>Sensor serial number</translation>
        </message>
        <message>
            <source>Serial number of the sensor (command 49)</source>
            <translation>Serial number of the sensor (command 49)</translation>
        </message>
        <message>
            <source>pH filter</source>
            <translation>pH filter</translation>
        </message>
        <message>
            <source>Averaging time of a small signal, s</source>
            <translation>Averaging time of a small signal, s</translation>
        </message>
        <message>
            <source>Command 132</source>
            <translation>Command 132</translation>
        </message>
        <message>
            <source>Averaging time of a big signal, s</source>
            <translation>Averaging time of a big signal, s</translation>
        </message>
        <message>
            <source>Threshold of a big signal</source>
            <translation>Threshold of a big signal</translation>
        </message>
        <message>
            <source>Temperature channel</source>
            <translation>Temperature channel</translation>
        </message>
        <message>
            <source>Temperature compensation</source>
            <translation>Temperature compensation</translation>
        </message>
        <message>
            <source>Command 135</source>
            <translation>Command 135</translation>
        </message>
        <message>
            <source>Manually set temperature, °C</source>
            <translation>Manually set temperature, °C</translation>
        </message>
        <message>
            <source>Temperature sensor</source>
            <translation>Temperature sensor</translation>
        </message>
        <message>
            <source>Command 136</source>
            <translation>Command 136</translation>
        </message>
        <message>
            <source>Resistance at 0 °C, Ohm</source>
            <translation>Resistance at 0 °C, Ohm</translation>
        </message>
        <message>
            <source>Temperature correction, °C</source>
            <translation>Temperature correction, °C</translation>
        </message>
        <message>
            <source>Temperature filter</source>
            <translation>Temperature filter</translation>
        </message>
        <message>
            <source>Command 137</source>
            <translation>Command 137</translation>
        </message>
        <message>
            <source>Threshold of a big signal, °C</source>
            <translation>Threshold of a big signal, °C</translation>
        </message>
        <message>
            <source>Range</source>
            <translation>Range</translation>
        </message>
        <message>
            <source>Sensor limits</source>
            <translation>Sensor limits</translation>
        </message>
        <message>
            <source>Lower sensor limit</source>
            <translation>Lower sensor limit</translation>
        </message>
        <message>
            <source>Upper sensor limit</source>
            <translation>Upper sensor limit</translation>
        </message>
        <message>
            <source>Minimum span</source>
            <translation>Minimum span</translation>
        </message>
        <message>
            <source>Conversion range</source>
            <translation>Conversion range</translation>
        </message>
        <message>
            <source>Lower range value</source>
            <translation>Lower range value</translation>
        </message>
        <message>
            <source>The value at 4 mA (command 35)</source>
            <translation>The value at 4 mA (command 35)</translation>
        </message>
        <message>
            <source>Take from PV</source>
            <translation>Take from PV</translation>
        </message>
        <message>
            <source>Make the present primary variable the lower range value (command 37)</source>
            <translation>Make the present primary variable the lower range value (command 37)</translation>
        </message>
        <message>
            <source>Upper range value</source>
            <translation>Upper range value</translation>
        </message>
        <message>
            <source>The value at 20 mA (command 35)</source>
            <translation>The value at 20 mA (command 35)</translation>
        </message>
        <message>
            <source>Make the present primary variable the upper range value (command 36)</source>
            <translation>Make the present primary variable the upper range value (command 36)</translation>
        </message>
        <message>
            <source>Indication range</source>
            <translation>Indication range</translation>
        </message>
        <message>
            <source>Lower value</source>
            <translation>Lower value</translation>
        </message>
        <message>
            <source>Command 141</source>
            <translation>Command 141</translation>
        </message>
        <message>
            <source>Upper value</source>
            <translation>Upper value</translation>
        </message>
        <message>
            <source>Fixed output current</source>
            <translation>Fixed output current</translation>
        </message>
        <message>
            <source>Current, mA</source>
            <translation>Current, mA</translation>
        </message>
        <message>
            <source>The loop current to hold (command 40)</source>
            <translation>The loop current to hold (command 40)</translation>
        </message>
        <message>
            <source>Set</source>
            <translation>Set</translation>
        </message>
        <message>
            <source>Reset</source>
            <translation>Reset</translation>
        </message>
        <message>
            <source>End the fixed current mode</source>
            <translation>End the fixed current mode</translation>
        </message>
        <message>
            <source>Manufacturer settings</source>
            <translation>Manufacturer settings</translation>
        </message>
        <message>
            <source>Save as manufacturer settings</source>
            <translation>Save as manufacturer settings</translation>
        </message>
        <message>
            <source>Keep the present settings of the device as its manufacturer settings</source>
            <translation>Keep the present settings of the device as its manufacturer settings</translation>
        </message>
        <message>
            <source>Restore manufacturer settings</source>
            <translation>Restore manufacturer settings</translation>
        </message>
        <message>
            <source>Bring the device back to its manufacturer settings</source>
            <translation>Bring the device back to its manufacturer settings</translation>
        </message>
        <message>
            <source>Graduation</source>
            <translation>Graduation</translation>
        </message>
        <message>
            <source>Current graduation</source>
            <translation>Current graduation</translation>
        </message>
        <message>
            <source>pH</source>
            <translation>pH</translation>
        </message>
        <message>
            <source>E, mV</source>
            <translation>E, mV</translation>
        </message>
        <message>
            <source>T, °C</source>
            <translation>T, °C</translation>
        </message>
        <message>
            <source>Point 1</source>
            <translation>Point 1</translation>
        </message>
        <message>
            <source>Point 2</source>
            <translation>Point 2</translation>
        </message>
        <message>
            <source>Graduation type</source>
            <translation>Graduation type</translation>
        </message>
        <message>
            <source>With one or two buffer solutions</source>
            <translation>With one or two buffer solutions</translation>
        </message>
        <message>
            <source>Start graduation</source>
            <translation>Start graduation</translation>
        </message>
        <message>
            <source>Read</source>
            <translation>Read</translation>
        </message>
        <message>
            <source>Read the current graduation values (command 150)</source>
            <translation>Read the current graduation values (command 150)</translation>
        </message>
        <message>
            <source>Stop graduation</source>
            <translation>Stop graduation</translation>
        </message>
        <message>
            <source>Stop the graduation and read the current values</source>
            <translation>Stop the graduation and read the current values</translation>
        </message>
        <message>
            <source>Point 1: put the electrode into the buffer solution and start the measurement. Write the point when the buffer pH turns green.</source>
            <translation>Point 1: put the electrode into the buffer solution and start the measurement. Write the point when the buffer pH turns green.</translation>
        </message>
        <message>
            <source>Buffer solution pH</source>
            <translation>Buffer solution pH</translation>
        </message>
        <message>
            <source>The pH of the buffer solution the device recognised; it may be corrected</source>
            <translation>The pH of the buffer solution the device recognised; it may be corrected</translation>
        </message>
        <message>
            <source>Start measurement</source>
            <translation>Start measurement</translation>
        </message>
        <message>
            <source>Watch the electrode in the buffer solution (command 33)</source>
            <translation>Watch the electrode in the buffer solution (command 33)</translation>
        </message>
        <message>
            <source>Electrode EMF</source>
            <translation>Electrode EMF</translation>
        </message>
        <message>
            <source>Temperature</source>
            <translation>Temperature</translation>
        </message>
        <message>
            <source>Write point 1</source>
            <translation>Write point 1</translation>
        </message>
        <message>
            <source>Write the graduation point (command 151)</source>
            <translation>Write the graduation point (command 151)</translation>
        </message>
        <message>
            <source>Point 2: put the electrode into the buffer solution and start the measurement. Write the point when the buffer pH turns green.</source>
            <translation>Point 2: put the electrode into the buffer solution and start the measurement. Write the point when the buffer pH turns green.</translation>
        </message>
        <message>
            <source>Write point 2</source>
            <translation>Write point 2</translation>
        </message>
        <message>
            <source>Metrology</source>
            <translation>Metrology</translation>
        </message>
        <message>
            <source>Choose what to adjust. Each adjustment needs the metrology access code of the device.</source>
            <translation>Choose what to adjust. Each adjustment needs the metrology access code of the device.</translation>
        </message>
        <message>
            <source>Output current 4-20 mA</source>
            <translation>Output current 4-20 mA</translation>
        </message>
        <message>
            <source>Measuring channels U, Rc, Rt</source>
            <translation>Measuring channels U, Rc, Rt</translation>
        </message>
        <message>
            <source>Ranges of Ei and S</source>
            <translation>Ranges of Ei and S</translation>
        </message>
        <message>
            <source>Sensor parameters</source>
            <translation>Sensor parameters</translation>
        </message>
        <message>
            <source>Metrology access code</source>
            <translation>Metrology access code</translation>
        </message>
        <message>
            <source>The code that opens the adjustment of the device (command 190)</source>
            <translation>The code that opens the adjustment of the device (command 190)</translation>
        </message>
        <message>
            <source>Open access</source>
            <translation>Open access</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
        <message>
            <source>Set the current, measure it with a reference meter, enter the measured value and adjust.</source>
            <translation>Set the current, measure it with a reference meter, enter the measured value and adjust.</translation>
        </message>
        <message>
            <source>Set 4 mA</source>
            <translation>Set 4 mA</translation>
        </message>
        <message>
            <source>mA</source>
            <translation>mA</translation>
        </message>
        <message>
            <source>Adjust 4 mA</source>
            <translation>Adjust 4 mA</translation>
        </message>
        <message>
            <source>Write the measured current (command 45)</source>
            <translation>Write the measured current (command 45)</translation>
        </message>
        <message>
            <source>Set 20 mA</source>
            <translation>Set 20 mA</translation>
        </message>
        <message>
            <source>Adjust 20 mA</source>
            <translation>Adjust 20 mA</translation>
        </message>
        <message>
            <source>Write the measured current (command 46)</source>
            <translation>Write the measured current (command 46)</translation>
        </message>
        <message>
            <source>Complete adjustment</source>
            <translation>Complete adjustment</translation>
        </message>
        <message>
            <source>Release the current, close metrology access and leave the adjustment</source>
            <translation>Release the current, close metrology access and leave the adjustment</translation>
        </message>
        <message>
            <source>Reading</source>
            <translation>Reading</translation>
        </message>
        <message>
            <source>Reference value</source>
            <translation>Reference value</translation>
        </message>
        <message>
            <source>Adjusted at</source>
            <translation>Adjusted at</translation>
        </message>
        <message>
            <source>U, mV</source>
            <translation>U, mV</translation>
        </message>
        <message>
            <source>Adjust the U channel at point 1 (command 172)</source>
            <translation>Adjust the U channel at point 1 (command 172)</translation>
        </message>
        <message>
            <source>Adjust the U channel at point 2 (command 172)</source>
            <translation>Adjust the U channel at point 2 (command 172)</translation>
        </message>
        <message>
            <source>Rc, kOhm</source>
            <translation>Rc, kOhm</translation>
        </message>
        <message>
            <source>Adjust the Rc channel at point 1 (command 174)</source>
            <translation>Adjust the Rc channel at point 1 (command 174)</translation>
        </message>
        <message>
            <source>Adjust the Rc channel at point 2 (command 174)</source>
            <translation>Adjust the Rc channel at point 2 (command 174)</translation>
        </message>
        <message>
            <source>Rt, Ohm</source>
            <translation>Rt, Ohm</translation>
        </message>
        <message>
            <source>Adjust</source>
            <translation>Adjust</translation>
        </message>
        <message>
            <source>Adjust the Rt channel (command 173)</source>
            <translation>Adjust the Rt channel (command 173)</translation>
        </message>
        <message>
            <source>Watch U, Rc and Rt (command 33)</source>
            <translation>Watch U, Rc and Rt (command 33)</translation>
        </message>
        <message>
            <source>Close metrology access and leave the adjustment</source>
            <translation>Close metrology access and leave the adjustment</translation>
        </message>
        <message>
            <source>Ei from, mV</source>
            <translation>Ei from, mV</translation>
        </message>
        <message>
            <source>to</source>
            <translation>to</translation>
        </message>
        <message>
            <source>S from, mV/pH</source>
            <translation>S from, mV/pH</translation>
        </message>
        <message>
            <source>Write</source>
            <translation>Write</translation>
        </message>
        <message>
            <source>Write the ranges (command 176)</source>
            <translation>Write the ranges (command 176)</translation>
        </message>
        <message>
            <source>Write the sensor parameters (commands 49 and 142)</source>
            <translation>Write the sensor parameters (commands 49 and 142)</translation>
        </message>
        <message>
            <source>Read configuration</source>
            <translation>Read configuration</translation>
        </message>
        <message>
            <source>Read the electrode, temperature, range, graduation and sensor settings from the device</source>
            <translation>Read the electrode, temperature, range, graduation and sensor settings from the device</translation>
        </message>
        <message>
            <source>Write configuration</source>
            <translation>Write configuration</translation>
        </message>
        <message>
            <source>Write the changed (blue) settings into the device</source>
            <translation>Write the changed (blue) settings into the device</translation>
        </message>
        <message>
            <source>Stop measurement</source>
            <translation>Stop measurement</translation>
        </message>
        <message>
            <source>pH-meter</source>
            <translation>pH-meter</translation>
        </message>
        <message>
            <source>pH-meter with VCW</source>
            <translation>pH-meter with VCW</translation>
        </message>
        <message>
            <source>OVP-meter</source>
            <translation>OVP-meter</translation>
        </message>
        <message>
            <source>EMF-meter</source>
            <translation>EMF-meter</translation>
        </message>
        <message>
            <source>measured by temperature sensor</source>
            <translation>measured by temperature sensor</translation>
        </message>
        <message>
            <source>manually set temperature</source>
            <translation>manually set temperature</translation>
        </message>
        <message>
            <source>off</source>
            <translation>off</translation>
        </message>
        <message>
            <source>on</source>
            <translation>on</translation>
        </message>
        <message>
            <source>P</source>
            <translation>P</translation>
        </message>
        <message>
            <source> (W=1,385)</source>
            <translation> (W=1,385)</translation>
        </message>
        <message>
            <source>Pt (W=1,391)</source>
            <translation>Pt (W=1,391)</translation>
        </message>
        <message>
            <source>1-point</source>
            <translation>1-point</translation>
        </message>
        <message>
            <source>2-point</source>
            <translation>2-point</translation>
        </message>
        <message>
            <source>write protection is enabled</source>
            <translation>write protection is enabled</translation>
        </message>
        <message>
            <source>Read device configuration</source>
            <translation>Read device configuration</translation>
        </message>
        <message>
            <source>It is forbidden to turn on the test of the resistance of the auxiliary electrode with a two-wire connection diagram of the ES, since in this mode the current consumption exceeds 4 mA!</source>
            <translation>It is forbidden to turn on the test of the resistance of the auxiliary electrode with a two-wire connection diagram of the ES, since in this mode the current consumption exceeds 4 mA!</translation>
        </message>
        <message>
            <source>Error</source>
            <translation>Error</translation>
        </message>
        <message>
            <source>Undefined</source>
            <translation>Undefined</translation>
        </message>
        <message>
            <source>Err</source>
            <translation>Err</translation>
        </message>
        <message>
            <source>nan</source>
            <translation>nan</translation>
        </message>
        <message>
            <source>Current graduation values</source>
            <translation>Current graduation values</translation>
        </message>
        <message>
            <source>Adjustment</source>
            <translation>Adjustment</translation>
        </message>
        <message>
            <source>You are in metrology mode and really want to start graduation?</source>
            <translation>You are in metrology mode and really want to start graduation?</translation>
        </message>
        <message>
            <source>Write graduation point %1</source>
            <translation>Write graduation point %1</translation>
        </message>
        <message>
            <source>Saved</source>
            <translation>Saved</translation>
        </message>
        <message>
            <source>Reading metrological parameters</source>
            <translation>Reading metrological parameters</translation>
        </message>
        <message>
            <source>U adjustment</source>
            <translation>U adjustment</translation>
        </message>
        <message>
            <source>Rc adjustment</source>
            <translation>Rc adjustment</translation>
        </message>
        <message>
            <source>Rt adjustment</source>
            <translation>Rt adjustment</translation>
        </message>
        <message>
            <source>Reading the ranges of Ei and S</source>
            <translation>Reading the ranges of Ei and S</translation>
        </message>
        <message>
            <source>Ei and S ranges</source>
            <translation>Ei and S ranges</translation>
        </message>
        <message>
            <source>Reading sensor parameters</source>
            <translation>Reading sensor parameters</translation>
        </message>
        <message>
            <source>Sensor parameters saving</source>
            <translation>Sensor parameters saving</translation>
        </message>
    </context>
    <context>
        <name>PVWidget</name>
        <message>
            <source>Variables</source>
            <translation>Variables</translation>
        </message>
        <message>
            <source>Dynamic variables</source>
            <translation>Dynamic variables</translation>
        </message>
        <message>
            <source>PV</source>
            <translation>PV</translation>
        </message>
        <message>
            <source>SV</source>
            <translation>SV</translation>
        </message>
        <message>
            <source>TV</source>
            <translation>TV</translation>
        </message>
        <message>
            <source>QV</source>
            <translation>QV</translation>
        </message>
        <message>
            <source>Loop current</source>
            <translation>Loop current</translation>
        </message>
        <message>
            <source>Current, mA</source>
            <translation>Current, mA</translation>
        </message>
        <message>
            <source>Percent of range</source>
            <translation>Percent of range</translation>
        </message>
        <message>
            <source>Read the dynamic variables and the loop current (commands 3 and 2)</source>
            <translation>Read the dynamic variables and the loop current (commands 3 and 2)</translation>
        </message>
        <message>
            <source>Refresh</source>
            <translation>Refresh</translation>
        </message>
        <message>
            <source>Read the additional status (command 48) with each exchange</source>
            <translation>Read the additional status (command 48) with each exchange</translation>
        </message>
        <message>
            <source>Additional status</source>
            <translation>Additional status</translation>
        </message>
        <message>
            <source>Reset the configuration changed flag of the device (command 38)</source>
            <translation>Reset the configuration changed flag of the device (command 38)</translation>
        </message>
        <message>
            <source>Reset flag &lt;Config changed&gt;</source>
            <translation>Reset flag &lt;Config changed&gt;</translation>
        </message>
        <message>
            <source>not used</source>
            <translation>not used</translation>
        </message>
        <message>
            <source>Reading variables</source>
            <translation>Reading variables</translation>
        </message>
        <message>
            <source>Reading the primary variable</source>
            <translation>Reading the primary variable</translation>
        </message>
        <message>
            <source>Primary Variable value read error! Try again please.</source>
            <translation>Primary Variable value read error! Try again please.</translation>
        </message>
        <message>
            <source>PV measurement error=%1! Try again please.</source>
            <translation>PV measurement error=%1! Try again please.</translation>
        </message>
        <message>
            <source>current loop disabled</source>
            <translation>current loop disabled</translation>
        </message>
    </context>
    <context>
        <name>Plotter</name>
        <message>
            <source>Next zoom</source>
            <translation>Next zoom</translation>
        </message>
        <message>
            <source>Previous zoom</source>
            <translation>Previous zoom</translation>
        </message>
        <message>
            <source>Move plot up</source>
            <translation>Move plot up</translation>
        </message>
        <message>
            <source>Move plot down</source>
            <translation>Move plot down</translation>
        </message>
        <message>
            <source>Move plot left</source>
            <translation>Move plot left</translation>
        </message>
        <message>
            <source>Move plot right</source>
            <translation>Move plot right</translation>
        </message>
        <message>
            <source>Curves draw mode - line/point</source>
            <translation>Curves draw mode - line/point</translation>
        </message>
    </context>
    <context>
        <name>Port</name>
        <message>
            <source>not such device '%1'</source>
            <translation>not such device '%1'</translation>
        </message>
        <message>
            <source>Can't open %1!
 error code: %2 - %3</source>
            <translation>Can't open %1!
 error code: %2 - %3</translation>
        </message>
        <message>
            <source>port '%1' is not opened</source>
            <translation>port '%1' is not opened</translation>
        </message>
        <message>
            <source>Invalid chars in device tag!</source>
            <translation>Invalid chars in device tag!</translation>
        </message>
        <message>
            <source>*** pack/unpack error!</source>
            <translation>*** pack/unpack error!</translation>
        </message>
    </context>
    <context>
        <name>PortThread</name>
        <message>
            <source>Write error %1, error code: %2 - %3</source>
            <translation>Write error %1, error code: %2 - %3</translation>
        </message>
        <message>
            <source>Request timeout (%1ms)</source>
            <translation>Request timeout (%1ms)</translation>
        </message>
        <message>
            <source>Response timeout (%1ms)</source>
            <translation>Response timeout (%1ms)</translation>
        </message>
        <message>
            <source>No permission to open %1. Serial ports are open to the members of the group "dialout": add your user to it (sudo adduser $USER dialout), then log out and in again.</source>
            <translation>No permission to open %1. Serial ports are open to the members of the group "dialout": add your user to it (sudo adduser $USER dialout), then log out and in again.</translation>
        </message>
    </context>
    <context>
        <name>QP1Device</name>
        <message>
            <source>decimal point position</source>
            <translation>decimal point position</translation>
        </message>
        <message>
            <source>device configuration</source>
            <translation>device configuration</translation>
        </message>
        <message>
            <source>temperature correction params</source>
            <translation>temperature correction params</translation>
        </message>
        <message>
            <source>pressure for line point</source>
            <translation>pressure for line point</translation>
        </message>
        <message>
            <source>average_count</source>
            <translation>average_count</translation>
        </message>
        <message>
            <source>calibration unit code</source>
            <translation>calibration unit code</translation>
        </message>
        <message>
            <source>line points count</source>
            <translation>line points count</translation>
        </message>
        <message>
            <source>line point value</source>
            <translation>line point value</translation>
        </message>
        <message>
            <source>temper corretion mode</source>
            <translation>temper corretion mode</translation>
        </message>
        <message>
            <source>temper corretion</source>
            <translation>temper corretion</translation>
        </message>
        <message>
            <source>adjust gain</source>
            <translation>adjust gain</translation>
        </message>
        <message>
            <source>free ragne</source>
            <translation>free ragne</translation>
        </message>
        <message>
            <source>indication range</source>
            <translation>indication range</translation>
        </message>
        <message>
            <source>get line point value</source>
            <translation>get line point value</translation>
        </message>
        <message>
            <source>manufacturer settings</source>
            <translation>manufacturer settings</translation>
        </message>
    </context>
    <context>
        <name>QP1Widget</name>
        <message>
            <source>Pressure converter</source>
            <translation>Pressure converter</translation>
        </message>
        <message>
            <source>Current state</source>
            <translation>Current state</translation>
        </message>
        <message>
            <source>Input</source>
            <translation>Input</translation>
        </message>
        <message>
            <source>Units</source>
            <translation>Units</translation>
        </message>
        <message>
            <source>The units of the pressure (command 44)</source>
            <translation>The units of the pressure (command 44)</translation>
        </message>
        <message>
            <source>Sensor serial number</source>
            <translation>Sensor serial number</translation>
        </message>
        <message>
            <source>Serial number of the sensor (command 49)</source>
            <translation>Serial number of the sensor (command 49)</translation>
        </message>
        <message>
            <source>Decimal point</source>
            <translation>Decimal point</translation>
        </message>
        <message>
            <source>Digits after the point on the indicator (command 133)</source>
            <translation>Digits after the point on the indicator (command 133)</translation>
        </message>
        <message>
            <source>Averaging count</source>
            <translation>Averaging count</translation>
        </message>
        <message>
            <source>Measurements averaged into one value (command 134)</source>
            <translation>Measurements averaged into one value (command 134)</translation>
        </message>
        <message>
            <source>Lower indication</source>
            <translation>Lower indication</translation>
        </message>
        <message>
            <source>The lower value of the indicator (command 146)</source>
            <translation>The lower value of the indicator (command 146)</translation>
        </message>
        <message>
            <source>Upper indication</source>
            <translation>Upper indication</translation>
        </message>
        <message>
            <source>The upper value of the indicator (command 146)</source>
            <translation>The upper value of the indicator (command 146)</translation>
        </message>
        <message>
            <source>Input at the lower indication</source>
            <translation>Input at the lower indication</translation>
        </message>
        <message>
            <source>The input value shown as the lower indication (command 145)</source>
            <translation>The input value shown as the lower indication (command 145)</translation>
        </message>
        <message>
            <source>Input at the upper indication</source>
            <translation>Input at the upper indication</translation>
        </message>
        <message>
            <source>The input value shown as the upper indication (command 145)</source>
            <translation>The input value shown as the upper indication (command 145)</translation>
        </message>
        <message>
            <source>The indicator shows the pressure in the units chosen.</source>
            <translation>The indicator shows the pressure in the units chosen.</translation>
        </message>
        <message>
            <source>Zero and gain</source>
            <translation>Zero and gain</translation>
        </message>
        <message>
            <source>Apply zero pressure and correct the zero; apply the upper pressure and correct the gain.</source>
            <translation>Apply zero pressure and correct the zero; apply the upper pressure and correct the gain.</translation>
        </message>
        <message>
            <source>Correct zero</source>
            <translation>Correct zero</translation>
        </message>
        <message>
            <source>Make the present pressure the zero (command 43)</source>
            <translation>Make the present pressure the zero (command 43)</translation>
        </message>
        <message>
            <source>Correct gain</source>
            <translation>Correct gain</translation>
        </message>
        <message>
            <source>Make the present pressure the upper limit of measurement (command 142)</source>
            <translation>Make the present pressure the upper limit of measurement (command 142)</translation>
        </message>
        <message>
            <source>Range</source>
            <translation>Range</translation>
        </message>
        <message>
            <source>Conversion range</source>
            <translation>Conversion range</translation>
        </message>
        <message>
            <source>Lower range value</source>
            <translation>Lower range value</translation>
        </message>
        <message>
            <source>The value at 4 mA (command 35)</source>
            <translation>The value at 4 mA (command 35)</translation>
        </message>
        <message>
            <source>Take from PV</source>
            <translation>Take from PV</translation>
        </message>
        <message>
            <source>Make the present primary variable the lower range value (command 37)</source>
            <translation>Make the present primary variable the lower range value (command 37)</translation>
        </message>
        <message>
            <source>Upper range value</source>
            <translation>Upper range value</translation>
        </message>
        <message>
            <source>The value at 20 mA (command 35)</source>
            <translation>The value at 20 mA (command 35)</translation>
        </message>
        <message>
            <source>Make the present primary variable the upper range value (command 36)</source>
            <translation>Make the present primary variable the upper range value (command 36)</translation>
        </message>
        <message>
            <source>Fixed output current</source>
            <translation>Fixed output current</translation>
        </message>
        <message>
            <source>Current, mA</source>
            <translation>Current, mA</translation>
        </message>
        <message>
            <source>The loop current to hold (command 40)</source>
            <translation>The loop current to hold (command 40)</translation>
        </message>
        <message>
            <source>Set</source>
            <translation>Set</translation>
        </message>
        <message>
            <source>Reset</source>
            <translation>Reset</translation>
        </message>
        <message>
            <source>End the fixed current mode</source>
            <translation>End the fixed current mode</translation>
        </message>
        <message>
            <source>Manufacturer settings</source>
            <translation>Manufacturer settings</translation>
        </message>
        <message>
            <source>Save as manufacturer settings</source>
            <translation>Save as manufacturer settings</translation>
        </message>
        <message>
            <source>Keep the present settings of the device as its manufacturer settings</source>
            <translation>Keep the present settings of the device as its manufacturer settings</translation>
        </message>
        <message>
            <source>Restore manufacturer settings</source>
            <translation>Restore manufacturer settings</translation>
        </message>
        <message>
            <source>Bring the device back to its manufacturer settings</source>
            <translation>Bring the device back to its manufacturer settings</translation>
        </message>
        <message>
            <source>Adjustment</source>
            <translation>Adjustment</translation>
        </message>
        <message>
            <source>Choose what to adjust. Each adjustment needs the metrology access code of the device.</source>
            <translation>Choose what to adjust. Each adjustment needs the metrology access code of the device.</translation>
        </message>
        <message>
            <source>Output current 4-20 mA</source>
            <translation>Output current 4-20 mA</translation>
        </message>
        <message>
            <source>Linearization table</source>
            <translation>Linearization table</translation>
        </message>
        <message>
            <source>Temperature correction</source>
            <translation>Temperature correction</translation>
        </message>
        <message>
            <source>Sensor parameters</source>
            <translation>Sensor parameters</translation>
        </message>
        <message>
            <source>Metrology access code</source>
            <translation>Metrology access code</translation>
        </message>
        <message>
            <source>The code that opens the adjustment of the device (command 190)</source>
            <translation>The code that opens the adjustment of the device (command 190)</translation>
        </message>
        <message>
            <source>Open access</source>
            <translation>Open access</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
        <message>
            <source>Set the current, measure it with a reference meter, enter the measured value and adjust.</source>
            <translation>Set the current, measure it with a reference meter, enter the measured value and adjust.</translation>
        </message>
        <message>
            <source>Set 4 mA</source>
            <translation>Set 4 mA</translation>
        </message>
        <message>
            <source>mA</source>
            <translation>mA</translation>
        </message>
        <message>
            <source>Adjust 4 mA</source>
            <translation>Adjust 4 mA</translation>
        </message>
        <message>
            <source>Write the measured current (command 45)</source>
            <translation>Write the measured current (command 45)</translation>
        </message>
        <message>
            <source>Set 20 mA</source>
            <translation>Set 20 mA</translation>
        </message>
        <message>
            <source>Adjust 20 mA</source>
            <translation>Adjust 20 mA</translation>
        </message>
        <message>
            <source>Write the measured current (command 46)</source>
            <translation>Write the measured current (command 46)</translation>
        </message>
        <message>
            <source>Complete adjustment</source>
            <translation>Complete adjustment</translation>
        </message>
        <message>
            <source>Release the current, close metrology access and leave the adjustment</source>
            <translation>Release the current, close metrology access and leave the adjustment</translation>
        </message>
        <message>
            <source>Sensor range</source>
            <translation>Sensor range</translation>
        </message>
        <message>
            <source>Calibration units</source>
            <translation>Calibration units</translation>
        </message>
        <message>
            <source>Write</source>
            <translation>Write</translation>
        </message>
        <message>
            <source>Write the units of the table (command 136)</source>
            <translation>Write the units of the table (command 136)</translation>
        </message>
        <message>
            <source>Points</source>
            <translation>Points</translation>
        </message>
        <message>
            <source>Write the number of points (command 137)</source>
            <translation>Write the number of points (command 137)</translation>
        </message>
        <message>
            <source>Reload</source>
            <translation>Reload</translation>
        </message>
        <message>
            <source>Read the table from the device again (command 148)</source>
            <translation>Read the table from the device again (command 148)</translation>
        </message>
        <message>
            <source>Edit points</source>
            <translation>Edit points</translation>
        </message>
        <message>
            <source>Close metrology access and leave the adjustment</source>
            <translation>Close metrology access and leave the adjustment</translation>
        </message>
        <message>
            <source>Point</source>
            <translation>Point</translation>
        </message>
        <message>
            <source>Read pressure</source>
            <translation>Read pressure</translation>
        </message>
        <message>
            <source>What the device measures now (command 149)</source>
            <translation>What the device measures now (command 149)</translation>
        </message>
        <message>
            <source>Write point</source>
            <translation>Write point</translation>
        </message>
        <message>
            <source>Write the reference value of the point (command 138)</source>
            <translation>Write the reference value of the point (command 138)</translation>
        </message>
        <message>
            <source>Back to the table</source>
            <translation>Back to the table</translation>
        </message>
        <message>
            <source>Correction mode</source>
            <translation>Correction mode</translation>
        </message>
        <message>
            <source>Write the correction mode (command 140)</source>
            <translation>Write the correction mode (command 140)</translation>
        </message>
        <message>
            <source>T1, °C</source>
            <translation>T1, °C</translation>
        </message>
        <message>
            <source>T2, °C</source>
            <translation>T2, °C</translation>
        </message>
        <message>
            <source>Correct at T1 and T2</source>
            <translation>Correct at T1 and T2</translation>
        </message>
        <message>
            <source>Put the device into the thermostat and set the temperature T1.</source>
            <translation>Put the device into the thermostat and set the temperature T1.</translation>
        </message>
        <message>
            <source>Temperature, °C</source>
            <translation>Temperature, °C</translation>
        </message>
        <message>
            <source>Apply the pressure P1 and save the point.</source>
            <translation>Apply the pressure P1 and save the point.</translation>
        </message>
        <message>
            <source>Apply the pressure P2 and save the point.</source>
            <translation>Apply the pressure P2 and save the point.</translation>
        </message>
        <message>
            <source>Set the temperature T2 in the thermostat.</source>
            <translation>Set the temperature T2 in the thermostat.</translation>
        </message>
        <message>
            <source>&lt; Back</source>
            <translation>&lt; Back</translation>
        </message>
        <message>
            <source>Next &gt;</source>
            <translation>Next &gt;</translation>
        </message>
        <message>
            <source>Save point</source>
            <translation>Save point</translation>
        </message>
        <message>
            <source>Write the point (command 141)</source>
            <translation>Write the point (command 141)</translation>
        </message>
        <message>
            <source>Lower sensor limit</source>
            <translation>Lower sensor limit</translation>
        </message>
        <message>
            <source>Upper sensor limit</source>
            <translation>Upper sensor limit</translation>
        </message>
        <message>
            <source>Minimum span</source>
            <translation>Minimum span</translation>
        </message>
        <message>
            <source>Write the sensor parameters (commands 49 and 147)</source>
            <translation>Write the sensor parameters (commands 49 and 147)</translation>
        </message>
        <message>
            <source>Read configuration</source>
            <translation>Read configuration</translation>
        </message>
        <message>
            <source>Read the input and the range from the device</source>
            <translation>Read the input and the range from the device</translation>
        </message>
        <message>
            <source>Write configuration</source>
            <translation>Write configuration</translation>
        </message>
        <message>
            <source>Write the changed (blue) settings into the device</source>
            <translation>Write the changed (blue) settings into the device</translation>
        </message>
        <message>
            <source>Free convertion</source>
            <translation>Free convertion</translation>
        </message>
        <message>
            <source>Pa  (Pa)</source>
            <translation>Pa  (Pa)</translation>
        </message>
        <message>
            <source>kPa (kPa)</source>
            <translation>kPa (kPa)</translation>
        </message>
        <message>
            <source>MPa (MPa)</source>
            <translation>MPa (MPa)</translation>
        </message>
        <message>
            <source>kgf/sm2 (kgf/sm2)</source>
            <translation>kgf/sm2 (kgf/sm2)</translation>
        </message>
        <message>
            <source>mbar (mbar)</source>
            <translation>mbar (mbar)</translation>
        </message>
        <message>
            <source>bar (bar)</source>
            <translation>bar (bar)</translation>
        </message>
        <message>
            <source>mmWS (mmWS)</source>
            <translation>mmWS (mmWS)</translation>
        </message>
        <message>
            <source>inchWS (inchWS)</source>
            <translation>inchWS (inchWS)</translation>
        </message>
        <message>
            <source>mmHg (mmHg)</source>
            <translation>mmHg (mmHg)</translation>
        </message>
        <message>
            <source>inchHg (inchHg)</source>
            <translation>inchHg (inchHg)</translation>
        </message>
        <message>
            <source>psi (lb/inch2)</source>
            <translation>psi (lb/inch2)</translation>
        </message>
        <message>
            <source>Value</source>
            <translation>Value</translation>
        </message>
        <message>
            <source>correction is disabled</source>
            <translation>correction is disabled</translation>
        </message>
        <message>
            <source>zero offset correction</source>
            <translation>zero offset correction</translation>
        </message>
        <message>
            <source>zero offset and gain correction</source>
            <translation>zero offset and gain correction</translation>
        </message>
        <message>
            <source>write protection is enabled</source>
            <translation>write protection is enabled</translation>
        </message>
        <message>
            <source>Read device configuration</source>
            <translation>Read device configuration</translation>
        </message>
        <message>
            <source>Zero adjustment</source>
            <translation>Zero adjustment</translation>
        </message>
        <message>
            <source>Do you want to set current
Primary Variable value=%1 %2
as Zero Value ?</source>
            <translation>Do you want to set current
Primary Variable value=%1 %2
as Zero Value ?</translation>
        </message>
        <message>
            <source>Adjusting zero</source>
            <translation>Adjusting zero</translation>
        </message>
        <message>
            <source>Gain correction</source>
            <translation>Gain correction</translation>
        </message>
        <message>
            <source>Do you want to set current
Primary Variable value=%1 %2
as upper limit of measurement ?</source>
            <translation>Do you want to set current
Primary Variable value=%1 %2
as upper limit of measurement ?</translation>
        </message>
        <message>
            <source>Real value of input signal (%1):</source>
            <translation>Real value of input signal (%1):</translation>
        </message>
        <message>
            <source>Adjusting the gain</source>
            <translation>Adjusting the gain</translation>
        </message>
        <message>
            <source>Linearization table loading</source>
            <translation>Linearization table loading</translation>
        </message>
        <message>
            <source>Line points count saving</source>
            <translation>Line points count saving</translation>
        </message>
        <message>
            <source>Calibration units saving</source>
            <translation>Calibration units saving</translation>
        </message>
        <message>
            <source>Pressure reading</source>
            <translation>Pressure reading</translation>
        </message>
        <message>
            <source>Linearization point %1 value saving</source>
            <translation>Linearization point %1 value saving</translation>
        </message>
        <message>
            <source>Temperature correction mode reading</source>
            <translation>Temperature correction mode reading</translation>
        </message>
        <message>
            <source>Temperature correction mode saving</source>
            <translation>Temperature correction mode saving</translation>
        </message>
        <message>
            <source>in thermostat should be T1=%1 </source>
            <translation>in thermostat should be T1=%1 </translation>
        </message>
        <message>
            <source>in the thermostat should be T2=%1 </source>
            <translation>in the thermostat should be T2=%1 </translation>
        </message>
        <message>
            <source>P%1T%2 correction saving</source>
            <translation>P%1T%2 correction saving</translation>
        </message>
        <message>
            <source>Operation completed successfully!

Writting temperature is different from previous value at this point.
Prev = %1 °C - Current = %2 °C</source>
            <translation>Operation completed successfully!

Writting temperature is different from previous value at this point.
Prev = %1 °C - Current = %2 °C</translation>
        </message>
        <message>
            <source>Sensor parameters saving</source>
            <translation>Sensor parameters saving</translation>
        </message>
    </context>
    <context>
        <name>RTUPortEditor</name>
        <message>
            <source>Serial device:</source>
            <translation>Serial device:</translation>
        </message>
        <message>
            <source>Refresh</source>
            <translation>Refresh</translation>
        </message>
        <message>
            <source>Check</source>
            <translation>Check</translation>
        </message>
        <message>
            <source>Baud rate:</source>
            <translation>Baud rate:</translation>
        </message>
        <message>
            <source>Data bits:</source>
            <translation>Data bits:</translation>
        </message>
        <message>
            <source>Parity:</source>
            <translation>Parity:</translation>
        </message>
        <message>
            <source>Stop bits:</source>
            <translation>Stop bits:</translation>
        </message>
        <message>
            <source>Request timeout:</source>
            <translation>Request timeout:</translation>
        </message>
        <message>
            <source>ms</source>
            <translation>ms</translation>
        </message>
        <message>
            <source>Response timeout:</source>
            <translation>Response timeout:</translation>
        </message>
        <message>
            <source>Byte timeout:</source>
            <translation>Byte timeout:</translation>
        </message>
        <message>
            <source>Initial number of preambles:</source>
            <translation>Initial number of preambles:</translation>
        </message>
        <message>
            <source>Closing the port after
the transaction</source>
            <translation>Closing the port after
the transaction</translation>
        </message>
        <message>
            <source>Find start of message</source>
            <translation>Find start of message</translation>
        </message>
        <message>
            <source>odd</source>
            <translation>odd</translation>
        </message>
        <message>
            <source>Port configuration</source>
            <translation>Port configuration</translation>
        </message>
        <message>
            <source>Port %1 already exists!</source>
            <translation>Port %1 already exists!</translation>
        </message>
        <message>
            <source>&lt;p style="color: red;"&gt;Failure: %1.&lt;/p&gt;</source>
            <translation>&lt;p style="color: red;"&gt;Failure: %1.&lt;/p&gt;</translation>
        </message>
        <message>
            <source>&lt;p style="color: green;"&gt;Success.&lt;/p&gt;</source>
            <translation>&lt;p style="color: green;"&gt;Success.&lt;/p&gt;</translation>
        </message>
    </context>
    <context>
        <name>ReadingsModel</name>
        <message>
            <source>Time</source>
            <translation>Time</translation>
        </message>
        <message>
            <source>%1 [%2]</source>
            <translation>%1 [%2]</translation>
        </message>
        <message>
            <source>Current</source>
            <translation>Current</translation>
        </message>
        <message>
            <source>Status</source>
            <translation>Status</translation>
        </message>
    </context>
    <context>
        <name>ServerItem</name>
        <message>
            <source>Ports &amp; Devices</source>
            <translation>Ports &amp; Devices</translation>
        </message>
        <message>
            <source>Port error</source>
            <translation>Port error</translation>
        </message>
        <message>
            <source>Port error code</source>
            <translation>Port error code</translation>
        </message>
        <message>
            <source>Config error(invalid access type)</source>
            <translation>Config error(invalid access type)</translation>
        </message>
        <message>
            <source>Port/Link error</source>
            <translation>Port/Link error</translation>
        </message>
        <message>
            <source>Timeout error</source>
            <translation>Timeout error</translation>
        </message>
        <message>
            <source>No error</source>
            <translation>No error</translation>
        </message>
    </context>
    <context>
        <name>SettingsDialog</name>
        <message>
            <source>Settings</source>
            <translation>Settings</translation>
        </message>
        <message>
            <source>Log flags</source>
            <translation>Log flags</translation>
        </message>
        <message>
            <source>ERR</source>
            <translation>ERR</translation>
        </message>
        <message>
            <source>WARN</source>
            <translation>WARN</translation>
        </message>
        <message>
            <source>INFO</source>
            <translation>INFO</translation>
        </message>
        <message>
            <source>Font</source>
            <translation>Font</translation>
        </message>
        <message>
            <source>Choose...</source>
            <translation>Choose...</translation>
        </message>
        <message>
            <source>HART master</source>
            <translation>HART master</translation>
        </message>
        <message>
            <source>Primary Master</source>
            <translation>Primary Master</translation>
        </message>
        <message>
            <source>Secondary Master</source>
            <translation>Secondary Master</translation>
        </message>
        <message>
            <source>add comments in tree</source>
            <translation>add comments in tree</translation>
        </message>
        <message>
            <source>load css styles</source>
            <translation>load css styles</translation>
        </message>
        <message>
            <source>%1 %2pt %3 %4</source>
            <translation>%1 %2pt %3 %4</translation>
        </message>
        <message>
            <source>bold</source>
            <translation>bold</translation>
        </message>
        <message>
            <source>italic</source>
            <translation>italic</translation>
        </message>
        <message>
            <source>Settings changes</source>
            <translation>Settings changes</translation>
        </message>
        <message>
            <source>Changes w'll take effect after the program is restarted.</source>
            <translation>Changes w'll take effect after the program is restarted.</translation>
        </message>
    </context>
    <context>
        <name>StatusWidget</name>
        <message>
            <source>Form</source>
            <translation>Form</translation>
        </message>
        <message>
            <source>Status</source>
            <translation>Status</translation>
        </message>
        <message>
            <source>completed successfully</source>
            <translation>completed successfully</translation>
        </message>
        <message>
            <source>completed with errors</source>
            <translation>completed with errors</translation>
        </message>
    </context>
    <context>
        <name>TCV2Device</name>
        <message>
            <source>device configuration</source>
            <translation>device configuration</translation>
        </message>
        <message>
            <source>decimal point position</source>
            <translation>decimal point position</translation>
        </message>
        <message>
            <source>input signal type &amp; sensor</source>
            <translation>input signal type &amp; sensor</translation>
        </message>
        <message>
            <source>connection schema</source>
            <translation>connection schema</translation>
        </message>
        <message>
            <source>resistance TS at 0</source>
            <translation>resistance TS at 0</translation>
        </message>
        <message>
            <source>resistance of connecting wires</source>
            <translation>resistance of connecting wires</translation>
        </message>
        <message>
            <source>free ends compensation</source>
            <translation>free ends compensation</translation>
        </message>
        <message>
            <source>average_count</source>
            <translation>average_count</translation>
        </message>
        <message>
            <source>first correction point</source>
            <translation>first correction point</translation>
        </message>
        <message>
            <source>second correction point</source>
            <translation>second correction point</translation>
        </message>
        <message>
            <source>input signal type</source>
            <translation>input signal type</translation>
        </message>
        <message>
            <source>sensor type</source>
            <translation>sensor type</translation>
        </message>
        <message>
            <source>adjust voltage</source>
            <translation>adjust voltage</translation>
        </message>
        <message>
            <source>adjust resistance</source>
            <translation>adjust resistance</translation>
        </message>
        <message>
            <source>adjust temperature</source>
            <translation>adjust temperature</translation>
        </message>
        <message>
            <source>adjust parameter code</source>
            <translation>adjust parameter code</translation>
        </message>
        <message>
            <source>manufacturer settings</source>
            <translation>manufacturer settings</translation>
        </message>
    </context>
    <context>
        <name>TCV2Widget</name>
        <message>
            <source>Temperature converter</source>
            <translation>Temperature converter</translation>
        </message>
        <message>
            <source>Current state</source>
            <translation>Current state</translation>
        </message>
        <message>
            <source>Input</source>
            <translation>Input</translation>
        </message>
        <message>
            <source>Input signal</source>
            <translation>Input signal</translation>
        </message>
        <message>
            <source>Input signal type</source>
            <translation>Input signal type</translation>
        </message>
        <message>
            <source>What the converter measures (command 151)</source>
            <translation>What the converter measures (command 151)</translation>
        </message>
        <message>
            <source>Sensor type</source>
            <translation>Sensor type</translation>
        </message>
        <message>
            <source>Sensor type (command 152)</source>
            <translation>Sensor type (command 152)</translation>
        </message>
        <message>
            <source>Sensor serial number</source>
            <translation>Sensor serial number</translation>
        </message>
        <message>
            <source>Serial number of the sensor (command 49)</source>
            <translation>Serial number of the sensor (command 49)</translation>
        </message>
        <message>
            <source>Decimal point</source>
            <translation>Decimal point</translation>
        </message>
        <message>
            <source>Digits after the point on the indicator (command 133)</source>
            <translation>Digits after the point on the indicator (command 133)</translation>
        </message>
        <message>
            <source>Averaging count</source>
            <translation>Averaging count</translation>
        </message>
        <message>
            <source>Measurements averaged into one value (command 134)</source>
            <translation>Measurements averaged into one value (command 134)</translation>
        </message>
        <message>
            <source>Connection schema</source>
            <translation>Connection schema</translation>
        </message>
        <message>
            <source>Resistance at 0 °C, Ohm</source>
            <translation>Resistance at 0 °C, Ohm</translation>
        </message>
        <message>
            <source>Nominal resistance of the thermometer at 0 °C (command 156)</source>
            <translation>Nominal resistance of the thermometer at 0 °C (command 156)</translation>
        </message>
        <message>
            <source>Resistance of the connecting wires, Ohm</source>
            <translation>Resistance of the connecting wires, Ohm</translation>
        </message>
        <message>
            <source>Resistance of the wires to the thermometer (command 158)</source>
            <translation>Resistance of the wires to the thermometer (command 158)</translation>
        </message>
        <message>
            <source>Compensation of the free ends</source>
            <translation>Compensation of the free ends</translation>
        </message>
        <message>
            <source>The sensor of the free ends of the thermocouple needs no further settings.</source>
            <translation>The sensor of the free ends of the thermocouple needs no further settings.</translation>
        </message>
        <message>
            <source>2-point correction</source>
            <translation>2-point correction</translation>
        </message>
        <message>
            <source>Correction point 1, °C</source>
            <translation>Correction point 1, °C</translation>
        </message>
        <message>
            <source>Correction point 2, °C</source>
            <translation>Correction point 2, °C</translation>
        </message>
        <message>
            <source>Begin correction</source>
            <translation>Begin correction</translation>
        </message>
        <message>
            <source>Correct the resistance thermometer at two temperatures</source>
            <translation>Correct the resistance thermometer at two temperatures</translation>
        </message>
        <message>
            <source>Put the thermometer at the temperature of point 1 and wait until the primary variable is steady. Then enter the temperature of the point and write it. Point 2 follows the same way.</source>
            <translation>Put the thermometer at the temperature of point 1 and wait until the primary variable is steady. Then enter the temperature of the point and write it. Point 2 follows the same way.</translation>
        </message>
        <message>
            <source>Start</source>
            <translation>Start</translation>
        </message>
        <message>
            <source>Temperature of point 1, °C</source>
            <translation>Temperature of point 1, °C</translation>
        </message>
        <message>
            <source>Write point 1</source>
            <translation>Write point 1</translation>
        </message>
        <message>
            <source>Read the primary variable and write the point (command 143)</source>
            <translation>Read the primary variable and write the point (command 143)</translation>
        </message>
        <message>
            <source>Temperature of point 2, °C</source>
            <translation>Temperature of point 2, °C</translation>
        </message>
        <message>
            <source>Write point 2</source>
            <translation>Write point 2</translation>
        </message>
        <message>
            <source>Read the primary variable and write the point (command 144)</source>
            <translation>Read the primary variable and write the point (command 144)</translation>
        </message>
        <message>
            <source>Cancel correction</source>
            <translation>Cancel correction</translation>
        </message>
        <message>
            <source>Range</source>
            <translation>Range</translation>
        </message>
        <message>
            <source>Sensor limits</source>
            <translation>Sensor limits</translation>
        </message>
        <message>
            <source>Lower sensor limit</source>
            <translation>Lower sensor limit</translation>
        </message>
        <message>
            <source>Upper sensor limit</source>
            <translation>Upper sensor limit</translation>
        </message>
        <message>
            <source>Minimum span</source>
            <translation>Minimum span</translation>
        </message>
        <message>
            <source>Conversion range</source>
            <translation>Conversion range</translation>
        </message>
        <message>
            <source>Lower range value</source>
            <translation>Lower range value</translation>
        </message>
        <message>
            <source>The value at 4 mA (command 35)</source>
            <translation>The value at 4 mA (command 35)</translation>
        </message>
        <message>
            <source>Take from PV</source>
            <translation>Take from PV</translation>
        </message>
        <message>
            <source>Make the present primary variable the lower range value (command 37)</source>
            <translation>Make the present primary variable the lower range value (command 37)</translation>
        </message>
        <message>
            <source>Upper range value</source>
            <translation>Upper range value</translation>
        </message>
        <message>
            <source>The value at 20 mA (command 35)</source>
            <translation>The value at 20 mA (command 35)</translation>
        </message>
        <message>
            <source>Make the present primary variable the upper range value (command 36)</source>
            <translation>Make the present primary variable the upper range value (command 36)</translation>
        </message>
        <message>
            <source>Fixed output current</source>
            <translation>Fixed output current</translation>
        </message>
        <message>
            <source>Current, mA</source>
            <translation>Current, mA</translation>
        </message>
        <message>
            <source>The loop current to hold (command 40)</source>
            <translation>The loop current to hold (command 40)</translation>
        </message>
        <message>
            <source>Set</source>
            <translation>Set</translation>
        </message>
        <message>
            <source>Reset</source>
            <translation>Reset</translation>
        </message>
        <message>
            <source>End the fixed current mode</source>
            <translation>End the fixed current mode</translation>
        </message>
        <message>
            <source>Manufacturer settings</source>
            <translation>Manufacturer settings</translation>
        </message>
        <message>
            <source>Save as manufacturer settings</source>
            <translation>Save as manufacturer settings</translation>
        </message>
        <message>
            <source>Keep the present settings of the device as its manufacturer settings</source>
            <translation>Keep the present settings of the device as its manufacturer settings</translation>
        </message>
        <message>
            <source>Restore manufacturer settings</source>
            <translation>Restore manufacturer settings</translation>
        </message>
        <message>
            <source>Bring the device back to its manufacturer settings</source>
            <translation>Bring the device back to its manufacturer settings</translation>
        </message>
        <message>
            <source>Adjustment</source>
            <translation>Adjustment</translation>
        </message>
        <message>
            <source>Choose what to adjust. Each adjustment needs the metrology access code of the device.</source>
            <translation>Choose what to adjust. Each adjustment needs the metrology access code of the device.</translation>
        </message>
        <message>
            <source>Output current 4-20 mA</source>
            <translation>Output current 4-20 mA</translation>
        </message>
        <message>
            <source>Resistance input</source>
            <translation>Resistance input</translation>
        </message>
        <message>
            <source>Voltage input (thermocouple)</source>
            <translation>Voltage input (thermocouple)</translation>
        </message>
        <message>
            <source>Temperature of the free ends</source>
            <translation>Temperature of the free ends</translation>
        </message>
        <message>
            <source>Metrology access code</source>
            <translation>Metrology access code</translation>
        </message>
        <message>
            <source>The code that opens the adjustment of the device (command 190)</source>
            <translation>The code that opens the adjustment of the device (command 190)</translation>
        </message>
        <message>
            <source>Open access</source>
            <translation>Open access</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
        <message>
            <source>Set the current, measure it with a reference meter, enter the measured value and adjust.</source>
            <translation>Set the current, measure it with a reference meter, enter the measured value and adjust.</translation>
        </message>
        <message>
            <source>Set 4 mA</source>
            <translation>Set 4 mA</translation>
        </message>
        <message>
            <source>mA</source>
            <translation>mA</translation>
        </message>
        <message>
            <source>Adjust 4 mA</source>
            <translation>Adjust 4 mA</translation>
        </message>
        <message>
            <source>Write the measured current (command 45)</source>
            <translation>Write the measured current (command 45)</translation>
        </message>
        <message>
            <source>Set 20 mA</source>
            <translation>Set 20 mA</translation>
        </message>
        <message>
            <source>Adjust 20 mA</source>
            <translation>Adjust 20 mA</translation>
        </message>
        <message>
            <source>Write the measured current (command 46)</source>
            <translation>Write the measured current (command 46)</translation>
        </message>
        <message>
            <source>Complete adjustment</source>
            <translation>Complete adjustment</translation>
        </message>
        <message>
            <source>Release the current, close metrology access and leave the adjustment</source>
            <translation>Release the current, close metrology access and leave the adjustment</translation>
        </message>
        <message>
            <source>Apply the reference voltage to the input. Read what the device measures, enter the reference value and adjust.</source>
            <translation>Apply the reference voltage to the input. Read what the device measures, enter the reference value and adjust.</translation>
        </message>
        <message>
            <source>Read from device</source>
            <translation>Read from device</translation>
        </message>
        <message>
            <source>What the device measures now (command 174)</source>
            <translation>What the device measures now (command 174)</translation>
        </message>
        <message>
            <source>mV</source>
            <translation>mV</translation>
        </message>
        <message>
            <source>Adjust</source>
            <translation>Adjust</translation>
        </message>
        <message>
            <source>Write the reference value (command 171)</source>
            <translation>Write the reference value (command 171)</translation>
        </message>
        <message>
            <source>Close metrology access and leave the adjustment</source>
            <translation>Close metrology access and leave the adjustment</translation>
        </message>
        <message>
            <source>Apply the reference resistance to the input. Read what the device measures, enter the reference value and adjust.</source>
            <translation>Apply the reference resistance to the input. Read what the device measures, enter the reference value and adjust.</translation>
        </message>
        <message>
            <source>Ohm</source>
            <translation>Ohm</translation>
        </message>
        <message>
            <source>Write the reference value (command 172)</source>
            <translation>Write the reference value (command 172)</translation>
        </message>
        <message>
            <source>Apply the reference temperature to the input. Read what the device measures, enter the reference value and adjust.</source>
            <translation>Apply the reference temperature to the input. Read what the device measures, enter the reference value and adjust.</translation>
        </message>
        <message>
            <source>°C</source>
            <translation>°C</translation>
        </message>
        <message>
            <source>Write the reference value (command 173)</source>
            <translation>Write the reference value (command 173)</translation>
        </message>
        <message>
            <source>Read configuration</source>
            <translation>Read configuration</translation>
        </message>
        <message>
            <source>Read the input, the range and the sensor limits from the device</source>
            <translation>Read the input, the range and the sensor limits from the device</translation>
        </message>
        <message>
            <source>Write configuration</source>
            <translation>Write configuration</translation>
        </message>
        <message>
            <source>Write the changed (blue) settings into the device</source>
            <translation>Write the changed (blue) settings into the device</translation>
        </message>
        <message>
            <source>A double click hides the prompt</source>
            <translation>A double click hides the prompt</translation>
        </message>
        <message>
            <source>It is necessary to set the device to work with a resistance thermometer</source>
            <translation>It is necessary to set the device to work with a resistance thermometer</translation>
        </message>
        <message>
            <source>It is necessary to set the device to work with a thermocouple</source>
            <translation>It is necessary to set the device to work with a thermocouple</translation>
        </message>
        <message>
            <source>It is necessary to set the device to work with sensor of free ends of the thermocouple</source>
            <translation>It is necessary to set the device to work with sensor of free ends of the thermocouple</translation>
        </message>
        <message>
            <source>The device needs to change
the position of the jumper</source>
            <translation>The device needs to change
the position of the jumper</translation>
        </message>
        <message>
            <source>Thermistor</source>
            <translation>Thermistor</translation>
        </message>
        <message>
            <source>Thermocouple</source>
            <translation>Thermocouple</translation>
        </message>
        <message>
            <source>Sensor T free ends of the thermocouple</source>
            <translation>Sensor T free ends of the thermocouple</translation>
        </message>
        <message>
            <source>A-1 (TBP)</source>
            <translation>A-1 (TBP)</translation>
        </message>
        <message>
            <source>A-2 (TBP)</source>
            <translation>A-2 (TBP)</translation>
        </message>
        <message>
            <source>A-3 (TBP)</source>
            <translation>A-3 (TBP)</translation>
        </message>
        <message>
            <source>B (TPR)</source>
            <translation>B (TPR)</translation>
        </message>
        <message>
            <source>E (TXK)</source>
            <translation>E (TXK)</translation>
        </message>
        <message>
            <source>J (TJK)</source>
            <translation>J (TJK)</translation>
        </message>
        <message>
            <source>K (TXA)</source>
            <translation>K (TXA)</translation>
        </message>
        <message>
            <source>L (TXK)</source>
            <translation>L (TXK)</translation>
        </message>
        <message>
            <source>M (TMK)</source>
            <translation>M (TMK)</translation>
        </message>
        <message>
            <source>N (THH)</source>
            <translation>N (THH)</translation>
        </message>
        <message>
            <source>R (TPP)</source>
            <translation>R (TPP)</translation>
        </message>
        <message>
            <source>S (TPP)</source>
            <translation>S (TPP)</translation>
        </message>
        <message>
            <source>T (TMK)</source>
            <translation>T (TMK)</translation>
        </message>
        <message>
            <source>Pt  (TCP)</source>
            <translation>Pt  (TCP)</translation>
        </message>
        <message>
            <source>Pt' (TCP)</source>
            <translation>Pt' (TCP)</translation>
        </message>
        <message>
            <source>Cu  (TCM)</source>
            <translation>Cu  (TCM)</translation>
        </message>
        <message>
            <source>Cu' (TCM)</source>
            <translation>Cu' (TCM)</translation>
        </message>
        <message>
            <source>Ni (TCH)</source>
            <translation>Ni (TCH)</translation>
        </message>
        <message>
            <source>2 or 4 wire's</source>
            <translation>2 or 4 wire's</translation>
        </message>
        <message>
            <source>3 wire's</source>
            <translation>3 wire's</translation>
        </message>
        <message>
            <source>off</source>
            <translation>off</translation>
        </message>
        <message>
            <source>on</source>
            <translation>on</translation>
        </message>
        <message>
            <source>write protection is enabled</source>
            <translation>write protection is enabled</translation>
        </message>
        <message>
            <source>Read device configuration</source>
            <translation>Read device configuration</translation>
        </message>
        <message>
            <source>Primary Variable value = %1
 Do you want to write correction point 1 = %2?</source>
            <translation>Primary Variable value = %1
 Do you want to write correction point 1 = %2?</translation>
        </message>
        <message>
            <source>Primary Variable value = %1
 Do you want to write correction point 2 = %2?</source>
            <translation>Primary Variable value = %1
 Do you want to write correction point 2 = %2?</translation>
        </message>
        <message>
            <source>Write correction point 1</source>
            <translation>Write correction point 1</translation>
        </message>
        <message>
            <source>Program settings do not match the settings of the device! [%1/%2]</source>
            <translation>Program settings do not match the settings of the device! [%1/%2]</translation>
        </message>
        <message>
            <source>Reading metrological parameters</source>
            <translation>Reading metrological parameters</translation>
        </message>
        <message>
            <source>Saving metrological parameters</source>
            <translation>Saving metrological parameters</translation>
        </message>
    </context>
    <context>
        <name>Tag</name>
        <message>
            <source>Invalid device type of tag '%1'</source>
            <translation>Invalid device type of tag '%1'</translation>
        </message>
    </context>
    <context>
        <name>TestDeviceDialog</name>
        <message>
            <source>Device test</source>
            <translation>Device test</translation>
        </message>
        <message>
            <source>Test:</source>
            <translation>Test:</translation>
        </message>
        <message>
            <source>Choose the folder of your own test templates (*.tpl)</source>
            <translation>Choose the folder of your own test templates (*.tpl)</translation>
        </message>
        <message>
            <source>Open From...</source>
            <translation>Open From...</translation>
        </message>
        <message>
            <source>Save a copy of the test template</source>
            <translation>Save a copy of the test template</translation>
        </message>
        <message>
            <source>Save As...</source>
            <translation>Save As...</translation>
        </message>
        <message>
            <source>Check All</source>
            <translation>Check All</translation>
        </message>
        <message>
            <source>Uncheck All</source>
            <translation>Uncheck All</translation>
        </message>
        <message>
            <source>Test rounds:</source>
            <translation>Test rounds:</translation>
        </message>
        <message>
            <source>How many times the ticked commands run, one round after the other</source>
            <translation>How many times the ticked commands run, one round after the other</translation>
        </message>
        <message>
            <source>Pause:</source>
            <translation>Pause:</translation>
        </message>
        <message>
            <source>The wait after an exchange whose command names no wait of its own</source>
            <translation>The wait after an exchange whose command names no wait of its own</translation>
        </message>
        <message>
            <source> ms</source>
            <translation> ms</translation>
        </message>
        <message>
            <source>Start</source>
            <translation>Start</translation>
        </message>
        <message>
            <source>Go on with an interrupted test from the command it stopped at</source>
            <translation>Go on with an interrupted test from the command it stopped at</translation>
        </message>
        <message>
            <source>Continue</source>
            <translation>Continue</translation>
        </message>
        <message>
            <source>Save Report...</source>
            <translation>Save Report...</translation>
        </message>
        <message>
            <source>Cmd</source>
            <translation>Cmd</translation>
        </message>
        <message>
            <source>Context</source>
            <translation>Context</translation>
        </message>
        <message>
            <source>Cycles</source>
            <translation>Cycles</translation>
        </message>
        <message>
            <source>Values</source>
            <translation>Values</translation>
        </message>
        <message>
            <source>Error count</source>
            <translation>Error count</translation>
        </message>
        <message>
            <source>Error text</source>
            <translation>Error text</translation>
        </message>
        <message>
            <source>Test of the device %1</source>
            <translation>Test of the device %1</translation>
        </message>
        <message>
            <source>The folder of tests %1 does not exist.</source>
            <translation>The folder of tests %1 does not exist.</translation>
        </message>
        <message>
            <source>Failed to load test %1</source>
            <translation>Failed to load test %1</translation>
        </message>
        <message>
            <source>command %1</source>
            <translation>command %1</translation>
        </message>
        <message>
            <source>Cancel</source>
            <translation>Cancel</translation>
        </message>
        <message>
            <source>Test round %1...</source>
            <translation>Test round %1...</translation>
        </message>
        <message>
            <source>The test did not run: the device is not the one it was written for.</source>
            <translation>The test did not run: the device is not the one it was written for.</translation>
        </message>
        <message>
            <source>###### Test round %1 goes on ######
</source>
            <translation>###### Test round %1 goes on ######
</translation>
        </message>
        <message>
            <source>The test was interrupted; Continue goes on from command %1.</source>
            <translation>The test was interrupted; Continue goes on from command %1.</translation>
        </message>
        <message>
            <source>Total round errors: %1
</source>
            <translation>Total round errors: %1
</translation>
        </message>
        <message>
            <source>Total test errors: %1
</source>
            <translation>Total test errors: %1
</translation>
        </message>
        <message>
            <source>No errors.</source>
            <translation>No errors.</translation>
        </message>
        <message>
            <source>%1 errors: %2</source>
            <translation>%1 errors: %2</translation>
        </message>
        <message>
            <source>###### Test round %1 ######
</source>
            <translation>###### Test round %1 ######
</translation>
        </message>
        <message>
            <source>Test command %1 - %2 (%3 cycles)...</source>
            <translation>Test command %1 - %2 (%3 cycles)...</translation>
        </message>
        <message>
            <source>readDevice(%1) %2</source>
            <translation>readDevice(%1) %2</translation>
        </message>
        <message>
            <source>--- cycle: %1 ---</source>
            <translation>--- cycle: %1 ---</translation>
        </message>
        <message>
            <source>values - [%1]</source>
            <translation>values - [%1]</translation>
        </message>
        <message>
            <source>Test command %1 - %2...
%3</source>
            <translation>Test command %1 - %2...
%3</translation>
        </message>
        <message>
            <source>writeDevice(%1)</source>
            <translation>writeDevice(%1)</translation>
        </message>
        <message>
            <source>when writing a values [%1], an error occurred:</source>
            <translation>when writing a values [%1], an error occurred:</translation>
        </message>
        <message>
            <source>*** check -&gt; readDevice(%1)</source>
            <translation>*** check -&gt; readDevice(%1)</translation>
        </message>
        <message>
            <source>Test command %1 - %2...
check result by command %3</source>
            <translation>Test command %1 - %2...
check result by command %3</translation>
        </message>
        <message>
            <source>Checking cmd %1: %2</source>
            <translation>Checking cmd %1: %2</translation>
        </message>
        <message>
            <source>%1 validation error: send:%2 recv:%3</source>
            <translation>%1 validation error: send:%2 recv:%3</translation>
        </message>
        <message>
            <source>The port %1 is closed.</source>
            <translation>The port %1 is closed.</translation>
        </message>
        <message>
            <source>Test of command %1 %2.</source>
            <translation>Test of command %1 %2.</translation>
        </message>
        <message>
            <source>was interrupted</source>
            <translation>was interrupted</translation>
        </message>
        <message>
            <source>completed</source>
            <translation>completed</translation>
        </message>
        <message>
            <source>total command %1 errors: %2
</source>
            <translation>total command %1 errors: %2
</translation>
        </message>
        <message>
            <source>Checking the device against the test...</source>
            <translation>Checking the device against the test...</translation>
        </message>
        <message>
            <source>%1: the test expects %2, the device has %3</source>
            <translation>%1: the test expects %2, the device has %3</translation>
        </message>
        <message>
            <source>nothing known</source>
            <translation>nothing known</translation>
        </message>
        <message>
            <source>The device is the one the test was written for.</source>
            <translation>The device is the one the test was written for.</translation>
        </message>
        <message>
            <source>The device does not match the test:
%1

Run the test anyway?</source>
            <translation>The device does not match the test:
%1

Run the test anyway?</translation>
        </message>
        <message>
            <source>unknown error</source>
            <translation>unknown error</translation>
        </message>
        <message>
            <source>validation error</source>
            <translation>validation error</translation>
        </message>
        <message>
            <source>validation errors</source>
            <translation>validation errors</translation>
        </message>
        <message>
            <source>Save Report</source>
            <translation>Save Report</translation>
        </message>
        <message>
            <source>Text files (*.txt);;All files (*)</source>
            <translation>Text files (*.txt);;All files (*)</translation>
        </message>
        <message>
            <source>Device test report</source>
            <translation>Device test report</translation>
        </message>
        <message>
            <source>Test: %1 (%2)</source>
            <translation>Test: %1 (%2)</translation>
        </message>
        <message>
            <source>Device: %1, template %2, polling address %3, long address %4, line %5</source>
            <translation>Device: %1, template %2, polling address %3, long address %4, line %5</translation>
        </message>
        <message>
            <source>Started: %1</source>
            <translation>Started: %1</translation>
        </message>
        <message>
            <source>The report could not be written to %1:
%2</source>
            <translation>The report could not be written to %1:
%2</translation>
        </message>
        <message>
            <source>Path for tests</source>
            <translation>Path for tests</translation>
        </message>
        <message>
            <source>The test template file does not exist!</source>
            <translation>The test template file does not exist!</translation>
        </message>
        <message>
            <source>Reports (*.tpl);;All files (*.*)</source>
            <translation>Reports (*.tpl);;All files (*.*)</translation>
        </message>
        <message>
            <source>Error copying the test template file</source>
            <translation>Error copying the test template file</translation>
        </message>
        <message>
            <source>There is no test for the template %1.</source>
            <translation>There is no test for the template %1.</translation>
        </message>
    </context>
    <context>
        <name>TestTemplate</name>
        <message>
            <source>cannot open the file: %1</source>
            <translation>cannot open the file: %1</translation>
        </message>
        <message>
            <source>line %1: %2</source>
            <translation>line %1: %2</translation>
        </message>
        <message>
            <source>"%1" is not a text</source>
            <translation>"%1" is not a text</translation>
        </message>
        <message>
            <source>it names no "template"</source>
            <translation>it names no "template"</translation>
        </message>
        <message>
            <source>it has no "device" object</source>
            <translation>it has no "device" object</translation>
        </message>
        <message>
            <source>"commands" of "device" is not a list of commands</source>
            <translation>"commands" of "device" is not a list of commands</translation>
        </message>
        <message>
            <source>command %1: not an object</source>
            <translation>command %1: not an object</translation>
        </message>
        <message>
            <source>command %1: </source>
            <translation>command %1: </translation>
        </message>
        <message>
            <source>"number" must be a HART command from 0 to 255</source>
            <translation>"number" must be a HART command from 0 to 255</translation>
        </message>
        <message>
            <source>"%1" must be a whole number from %2 to %3</source>
            <translation>"%1" must be a whole number from %2 to %3</translation>
        </message>
        <message>
            <source>"description" is not a text</source>
            <translation>"description" is not a text</translation>
        </message>
        <message>
            <source>"print" must be a list of value names</source>
            <translation>"print" must be a list of value names</translation>
        </message>
        <message>
            <source>"close_port" must be true or false</source>
            <translation>"close_port" must be true or false</translation>
        </message>
        <message>
            <source>"parameters" must give each value name a list of values, one for each cycle</source>
            <translation>"parameters" must give each value name a list of values, one for each cycle</translation>
        </message>
    </context>
</TS>
