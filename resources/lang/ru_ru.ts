<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU">
<context>
    <name>CommandWidget</name>
    <message>
        <source>Custom command</source>
        <translation>Произвольная команда</translation>
    </message>
    <message>
        <source>Command:</source>
        <translation>Команда:</translation>
    </message>
    <message>
        <source>HART command number</source>
        <translation>Номер команды HART</translation>
    </message>
    <message>
        <source>Commands the device knows</source>
        <translation>Команды, известные устройству</translation>
    </message>
    <message>
        <source>Send as custom command</source>
        <translation>Как произвольную</translation>
    </message>
    <message>
        <source>Send the data buffer even for a command the device knows</source>
        <translation>Отправить буфер данных и для команды, известной устройству</translation>
    </message>
    <message>
        <source>Send</source>
        <translation>Отправить</translation>
    </message>
    <message>
        <source>Request data</source>
        <translation>Данные запроса</translation>
    </message>
    <message>
        <source>Data:</source>
        <translation>Данные:</translation>
    </message>
    <message>
        <source>Select bytes to replace them by the next insertion</source>
        <translation>Выделите байты, чтобы заменить их следующей вставкой</translation>
    </message>
    <message>
        <source>Byte:</source>
        <translation>Байт:</translation>
    </message>
    <message>
        <source>Previous value</source>
        <translation>Предыдущее значение</translation>
    </message>
    <message>
        <source>Next value</source>
        <translation>Следующее значение</translation>
    </message>
    <message>
        <source>Add byte</source>
        <translation>Добавить байт</translation>
    </message>
    <message>
        <source>Integer:</source>
        <translation>Целое:</translation>
    </message>
    <message>
        <source>Size:</source>
        <translation>Размер:</translation>
    </message>
    <message>
        <source>Bytes of the integer</source>
        <translation>Байтов в целом числе</translation>
    </message>
    <message>
        <source>Add int</source>
        <translation>Добавить целое</translation>
    </message>
    <message>
        <source>Get int</source>
        <translation>Прочитать целое</translation>
    </message>
    <message>
        <source>Float:</source>
        <translation>Дробное:</translation>
    </message>
    <message>
        <source>Add float</source>
        <translation>Добавить дробное</translation>
    </message>
    <message>
        <source>Get float</source>
        <translation>Прочитать дробное</translation>
    </message>
    <message>
        <source>Text:</source>
        <translation>Текст:</translation>
    </message>
    <message>
        <source>Add packed</source>
        <translation>Добавить упак.</translation>
    </message>
    <message>
        <source>Add as packed ASCII</source>
        <translation>Добавить как упакованный ASCII</translation>
    </message>
    <message>
        <source>Add Latin-1</source>
        <translation>Добавить Latin-1</translation>
    </message>
    <message>
        <source>Add as Latin-1 characters, one byte each</source>
        <translation>Добавить как символы Latin-1, по байту на символ</translation>
    </message>
    <message>
        <source>Get text</source>
        <translation>Прочитать текст</translation>
    </message>
    <message>
        <source>Read packed ASCII from the offset</source>
        <translation>Прочитать упакованный ASCII со смещения</translation>
    </message>
    <message>
        <source>Offset:</source>
        <translation>Смещение:</translation>
    </message>
    <message>
        <source>Where Get reads in the buffer</source>
        <translation>Откуда читают кнопки «Прочитать» в буфере</translation>
    </message>
    <message>
        <source>Clear buffer</source>
        <translation>Очистить буфер</translation>
    </message>
    <message>
        <source>Answer</source>
        <translation>Ответ</translation>
    </message>
    <message>
        <source>Sent:</source>
        <translation>Отправлено:</translation>
    </message>
    <message>
        <source>Data bytes of the request</source>
        <translation>Байты данных запроса</translation>
    </message>
    <message>
        <source>Received:</source>
        <translation>Получено:</translation>
    </message>
    <message>
        <source>Data bytes of the answer</source>
        <translation>Байты данных ответа</translation>
    </message>
    <message>
        <source>Mask:</source>
        <translation>Маска:</translation>
    </message>
    <message>
        <source>Tokens [offset]type[length] separated by blanks: b byte, i integer (3 bytes by default), f float, t packed text</source>
        <translation>Элементы [смещение]тип[длина] через пробел: b байт, i целое (по умолчанию 3 байта), f вещественное, t упакованный текст</translation>
    </message>
    <message>
        <source>Parse</source>
        <translation>Разобрать</translation>
    </message>
    <message>
        <source>Result:</source>
        <translation>Результат:</translation>
    </message>
    <message>
        <source>Custom command %1</source>
        <translation>Произвольная команда %1</translation>
    </message>
    <message>
        <source>%1 bytes</source>
        <translation>%1 байт</translation>
    </message>
    <message>
        <source>Offset %1, length %2</source>
        <translation>Смещение %1, длина %2</translation>
    </message>
    <message>
        <source>Int value</source>
        <translation>Целое значение</translation>
    </message>
    <message>
        <source>You must enter an integer value!</source>
        <translation>Необходимо ввести целое значение!</translation>
    </message>
    <message>
        <source>Invalid type char</source>
        <translation>Неверный символ типа</translation>
    </message>
    <message>
        <source>Invalid lenght char</source>
        <translation>Неверный символ длины</translation>
    </message>
    <message>
        <source>Invalid text lenght</source>
        <translation>Неверная длина текста</translation>
    </message>
    <message>
        <source>Beyond the end of the answer</source>
        <translation>За концом ответа</translation>
    </message>
</context>
<context>
    <name>CommonWidget</name>
    <message>
        <source>Common</source>
        <translation>Общие</translation>
    </message>
    <message>
        <source>Device on the line</source>
        <translation>Устройство на линии</translation>
    </message>
    <message>
        <source>Port:</source>
        <translation>Порт:</translation>
    </message>
    <message>
        <source>Polling address:</source>
        <translation>Адрес опроса:</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Записать</translation>
    </message>
    <message>
        <source>Write the polling address to the device (command 6)</source>
        <translation>Записать адрес опроса в устройство (команда 6)</translation>
    </message>
    <message>
        <source>Long address:</source>
        <translation>Длинный адрес:</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>Проверить</translation>
    </message>
    <message>
        <source>Identify the device at its polling address (command 0)</source>
        <translation>Опознать устройство по адресу опроса (команда 0)</translation>
    </message>
    <message>
        <source>Check by tag</source>
        <translation>По тегу</translation>
    </message>
    <message>
        <source>Identify the device by the tag typed below (command 11)</source>
        <translation>Опознать устройство по введённому ниже тегу (команда 11)</translation>
    </message>
    <message>
        <source>Check by long tag</source>
        <translation>По длинному тегу</translation>
    </message>
    <message>
        <source>Identify the device by the long tag typed below (command 21)</source>
        <translation>Опознать устройство по введённому ниже длинному тегу (команда 21)</translation>
    </message>
    <message>
        <source>Find by command 73</source>
        <translation>Найти командой 73</translation>
    </message>
    <message>
        <source>Find the device whose two buttons are pressed (command 73)</source>
        <translation>Найти устройство, на котором нажаты две кнопки (команда 73)</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Тег</translation>
    </message>
    <message>
        <source>Tag:</source>
        <translation>Тег:</translation>
    </message>
    <message>
        <source>Descriptor:</source>
        <translation>Дескриптор:</translation>
    </message>
    <message>
        <source>Date:</source>
        <translation>Дата:</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Прочитать</translation>
    </message>
    <message>
        <source>Read or write the tag, descriptor and date (commands 13 and 18)</source>
        <translation>Прочитать или записать тег, дескриптор и дату (команды 13 и 18)</translation>
    </message>
    <message>
        <source>Long tag</source>
        <translation>Длинный тег</translation>
    </message>
    <message>
        <source>Long tag:</source>
        <translation>Длинный тег:</translation>
    </message>
    <message>
        <source>Read the long tag (command 20)</source>
        <translation>Прочитать длинный тег (команда 20)</translation>
    </message>
    <message>
        <source>Write the long tag (command 22)</source>
        <translation>Записать длинный тег (команда 22)</translation>
    </message>
    <message>
        <source>Message</source>
        <translation>Сообщение</translation>
    </message>
    <message>
        <source>Read or write the message (commands 12 and 17)</source>
        <translation>Прочитать или записать сообщение (команды 12 и 17)</translation>
    </message>
    <message>
        <source>Identity</source>
        <translation>Идентификация</translation>
    </message>
    <message>
        <source>Device type:</source>
        <translation>Тип устройства:</translation>
    </message>
    <message>
        <source>Manufacturer:</source>
        <translation>Изготовитель:</translation>
    </message>
    <message>
        <source>Flags:</source>
        <translation>Флаги:</translation>
    </message>
    <message>
        <source>HART revision:</source>
        <translation>Версия HART:</translation>
    </message>
    <message>
        <source>Device revision:</source>
        <translation>Версия устройства:</translation>
    </message>
    <message>
        <source>Software revision:</source>
        <translation>Версия ПО:</translation>
    </message>
    <message>
        <source>Hardware revision:</source>
        <translation>Версия аппаратуры:</translation>
    </message>
    <message>
        <source>Write protection</source>
        <translation>Защита от записи</translation>
    </message>
    <message>
        <source>Set write protection in the device (command 129); only the device itself removes it</source>
        <translation>Установить защиту от записи в устройстве (команда 129); снять её можно только на самом устройстве</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Сброс</translation>
    </message>
    <message>
        <source>Reset the device (command 42)</source>
        <translation>Сбросить устройство (команда 42)</translation>
    </message>
    <message>
        <source>Self test</source>
        <translation>Самотест</translation>
    </message>
    <message>
        <source>Start the self test of the device (command 41)</source>
        <translation>Запустить самотестирование устройства (команда 41)</translation>
    </message>
    <message>
        <source>Damping time</source>
        <translation>Время демпфирования</translation>
    </message>
    <message>
        <source> s</source>
        <translation> с</translation>
    </message>
    <message>
        <source>Write the damping time (command 34)</source>
        <translation>Записать время демпфирования (команда 34)</translation>
    </message>
    <message>
        <source>Number of preambles</source>
        <translation>Число преамбул</translation>
    </message>
    <message>
        <source>Write the number of response preambles (command 59)</source>
        <translation>Записать число преамбул ответа (команда 59)</translation>
    </message>
    <message>
        <source>Final assembly number</source>
        <translation>Номер сборки</translation>
    </message>
    <message>
        <source>Read or write the final assembly number (commands 16 and 19)</source>
        <translation>Прочитать или записать номер окончательной сборки (команды 16 и 19)</translation>
    </message>
    <message>
        <source>Device identification by tag</source>
        <translation>Идентификация устройства по тегу</translation>
    </message>
    <message>
        <source>Tag is empty!
Please enter a tag with up to 8 characters</source>
        <translation>Тег пуст!
Введите тег длиной до 8 символов</translation>
    </message>
    <message>
        <source>Device identification by long tag</source>
        <translation>Идентификация устройства по длинному тегу</translation>
    </message>
    <message>
        <source>Long tag is empty!
Please enter a long tag with up to 32 characters</source>
        <translation>Длинный тег пуст!
Введите длинный тег длиной до 32 символов</translation>
    </message>
    <message>
        <source>by tag</source>
        <translation>по тегу</translation>
    </message>
    <message>
        <source>by long tag</source>
        <translation>по длинному тегу</translation>
    </message>
    <message>
        <source>Device identification %1</source>
        <translation>Идентификация устройства %1</translation>
    </message>
    <message>
        <source>Search by command 73</source>
        <translation>Поиск командой 73</translation>
    </message>
    <message>
        <source>Did you press two buttons on the device?</source>
        <translation>Вы нажали две кнопки на устройстве?</translation>
    </message>
    <message>
        <source>ERROR: Tags not equal!
Send: &apos;%1&apos;
Resv: &apos;%2&apos;</source>
        <translation>ОШИБКА: теги не совпадают!
Отправлен: &apos;%1&apos;
Получен: &apos;%2&apos;</translation>
    </message>
    <message>
        <source>Check device</source>
        <translation>Проверка устройства</translation>
    </message>
    <message>
        <source>Wrong template %1 for
device type code = 0x%2%3 !!!

Continue ?</source>
        <translation>Неверный шаблон %1 для
кода типа устройства = 0x%2%3 !!!

Продолжить?</translation>
    </message>
    <message>
        <source>Writing %1</source>
        <translation>Запись: %1</translation>
    </message>
    <message>
        <source>The device is write-protected!</source>
        <translation>Устройство защищено от записи!</translation>
    </message>
    <message>
        <source>of %1</source>
        <translation>(%1)</translation>
    </message>
    <message>
        <source>Do you want to save your changes %1?</source>
        <translation>Записать изменения %1?</translation>
    </message>
    <message>
        <source>tag, descriptor and date</source>
        <translation>тег, дескриптор и дата</translation>
    </message>
    <message>
        <source>message</source>
        <translation>сообщение</translation>
    </message>
    <message>
        <source>assemlbly number</source>
        <translation>номер сборки</translation>
    </message>
    <message>
        <source>Reading %1</source>
        <translation>Чтение: %1</translation>
    </message>
    <message>
        <source>long tag</source>
        <translation>длинный тег</translation>
    </message>
    <message>
        <source>damping time</source>
        <translation>время демпфирования</translation>
    </message>
    <message>
        <source>number of preambles</source>
        <translation>число преамбул</translation>
    </message>
    <message>
        <source>polling_address</source>
        <translation>адрес опроса</translation>
    </message>
    <message>
        <source>Do you want to disable the current loop function?</source>
        <translation>Отключить токовую петлю?</translation>
    </message>
    <message>
        <source>
To remove write protection is possible only
through the menu of the device!</source>
        <translation>
Снять защиту от записи можно только
через меню устройства!</translation>
    </message>
    <message>
        <source>Do you want to set write protection in the device?
</source>
        <translation>Установить защиту от записи в устройстве?
</translation>
    </message>
    <message>
        <source>Set write protection</source>
        <translation>Установка защиты от записи</translation>
    </message>
    <message>
        <source>Reading write protection flag</source>
        <translation>Чтение флага защиты от записи</translation>
    </message>
    <message>
        <source>Device self test</source>
        <translation>Самотестирование устройства</translation>
    </message>
    <message>
        <source>Are you sure you want to start the device self test? It can take some time!</source>
        <translation>Запустить самотестирование устройства? Это может занять некоторое время!</translation>
    </message>
</context>
<context>
    <name>DefaultDeviceWidget</name>
    <message>
        <source>HART device</source>
        <translation>HART-прибор</translation>
    </message>
    <message>
        <source>Current state</source>
        <translation>Текущее состояние</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>Конфигурация</translation>
    </message>
    <message>
        <source>Primary variable</source>
        <translation>Первичная переменная</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Единицы</translation>
    </message>
    <message>
        <source>Units of the primary variable and of its range (command 44)</source>
        <translation>Единицы первичной переменной и её диапазона (команда 44)</translation>
    </message>
    <message>
        <source>Transfer function</source>
        <translation>Передаточная функция</translation>
    </message>
    <message>
        <source>How the output follows the primary variable (command 47)</source>
        <translation>Как выход следует за первичной переменной (команда 47)</translation>
    </message>
    <message>
        <source>Alarm selection</source>
        <translation>Сигнал аварии</translation>
    </message>
    <message>
        <source>What the output does on a failure (command 15)</source>
        <translation>Что делает выход при отказе (команда 15)</translation>
    </message>
    <message>
        <source>Extended status</source>
        <translation>Расширенный статус</translation>
    </message>
    <message>
        <source>Conversion range</source>
        <translation>Диапазон преобразования</translation>
    </message>
    <message>
        <source>Lower range value</source>
        <translation>Нижний предел</translation>
    </message>
    <message>
        <source>The value at 4 mA (command 35)</source>
        <translation>Значение при 4 мА (команда 35)</translation>
    </message>
    <message>
        <source>Take from PV</source>
        <translation>Взять из PV</translation>
    </message>
    <message>
        <source>Make the present primary variable the lower range value (command 37)</source>
        <translation>Сделать текущую первичную переменную нижним пределом (команда 37)</translation>
    </message>
    <message>
        <source>Upper range value</source>
        <translation>Верхний предел</translation>
    </message>
    <message>
        <source>The value at 20 mA (command 35)</source>
        <translation>Значение при 20 мА (команда 35)</translation>
    </message>
    <message>
        <source>Make the present primary variable the upper range value (command 36)</source>
        <translation>Сделать текущую первичную переменную верхним пределом (команда 36)</translation>
    </message>
    <message>
        <source>Sensor of the primary variable</source>
        <translation>Датчик первичной переменной</translation>
    </message>
    <message>
        <source>Sensor serial number</source>
        <translation>Заводской номер датчика</translation>
    </message>
    <message>
        <source>Serial number of the sensor (command 49)</source>
        <translation>Заводской номер датчика (команда 49)</translation>
    </message>
    <message>
        <source>Lower sensor limit</source>
        <translation>Нижний предел датчика</translation>
    </message>
    <message>
        <source>Upper sensor limit</source>
        <translation>Верхний предел датчика</translation>
    </message>
    <message>
        <source>Minimum span</source>
        <translation>Минимальный диапазон</translation>
    </message>
    <message>
        <source>Output current</source>
        <translation>Выходной ток</translation>
    </message>
    <message>
        <source>Fixed current, mA</source>
        <translation>Фиксированный ток, мА</translation>
    </message>
    <message>
        <source>The loop current to hold (command 40)</source>
        <translation>Ток петли, который надо удерживать (команда 40)</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Установить</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Сброс</translation>
    </message>
    <message>
        <source>End the fixed current mode</source>
        <translation>Выйти из режима фиксированного тока</translation>
    </message>
    <message>
        <source>Measured current, mA</source>
        <translation>Измеренный ток, мА</translation>
    </message>
    <message>
        <source>The current a reference meter measures in the loop</source>
        <translation>Ток в петле по образцовому прибору</translation>
    </message>
    <message>
        <source>Adjust 4 mA</source>
        <translation>Подстроить 4 мА</translation>
    </message>
    <message>
        <source>Write the measured current as 4 mA (command 45)</source>
        <translation>Записать измеренный ток как 4 мА (команда 45)</translation>
    </message>
    <message>
        <source>Adjust 20 mA</source>
        <translation>Подстроить 20 мА</translation>
    </message>
    <message>
        <source>Write the measured current as 20 mA</source>
        <translation>Записать измеренный ток как 20 мА</translation>
    </message>
    <message>
        <source>Adjust zero</source>
        <translation>Подстроить ноль</translation>
    </message>
    <message>
        <source>Make the present primary variable the zero (command 43)</source>
        <translation>Сделать текущую первичную переменную нулём (команда 43)</translation>
    </message>
    <message>
        <source>Device variables</source>
        <translation>Переменные прибора</translation>
    </message>
    <message>
        <source>Dynamic variables</source>
        <translation>Динамические переменные</translation>
    </message>
    <message>
        <source>PV</source>
        <translation>PV</translation>
    </message>
    <message>
        <source>The device variable shown as PV (command 51)</source>
        <translation>Переменная прибора, показываемая как PV (команда 51)</translation>
    </message>
    <message>
        <source>SV</source>
        <translation>SV</translation>
    </message>
    <message>
        <source>The device variable shown as SV (command 51)</source>
        <translation>Переменная прибора, показываемая как SV (команда 51)</translation>
    </message>
    <message>
        <source>TV</source>
        <translation>TV</translation>
    </message>
    <message>
        <source>The device variable shown as TV (command 51)</source>
        <translation>Переменная прибора, показываемая как TV (команда 51)</translation>
    </message>
    <message>
        <source>QV</source>
        <translation>QV</translation>
    </message>
    <message>
        <source>The device variable shown as QV (command 51)</source>
        <translation>Переменная прибора, показываемая как QV (команда 51)</translation>
    </message>
    <message>
        <source>The device variables (command 9); a row shows its settings (command 54)</source>
        <translation>Переменные прибора (команда 9); строка показывает свои настройки (команда 54)</translation>
    </message>
    <message>
        <source>Device variable</source>
        <translation>Переменная прибора</translation>
    </message>
    <message>
        <source>Family</source>
        <translation>Семейство</translation>
    </message>
    <message>
        <source>Units of the device variable (command 53)</source>
        <translation>Единицы переменной прибора (команда 53)</translation>
    </message>
    <message>
        <source>Read configuration</source>
        <translation>Читать конфигурацию</translation>
    </message>
    <message>
        <source>Read the dynamic variables, the range, the sensor and the device variables from the device</source>
        <translation>Прочитать из прибора динамические переменные, диапазон, датчик и переменные прибора</translation>
    </message>
    <message>
        <source>Write configuration</source>
        <translation>Записать конфигурацию</translation>
    </message>
    <message>
        <source>Write the changed (blue) settings into the device</source>
        <translation>Записать изменённые (синие) настройки в прибор</translation>
    </message>
    <message>
        <source>Pa  (Pa)</source>
        <translation>Па  (Pa)</translation>
    </message>
    <message>
        <source>kPa (kPa)</source>
        <translation>кПа (kPa)</translation>
    </message>
    <message>
        <source>MPa (MPa)</source>
        <translation>МПа (MPa)</translation>
    </message>
    <message>
        <source>kgf/sm2 (kgf/sm2)</source>
        <translation>кгс/см2 (kgf/sm2)</translation>
    </message>
    <message>
        <source>mbar (mbar)</source>
        <translation>мбар (mbar)</translation>
    </message>
    <message>
        <source>bar (bar)</source>
        <translation>бар (bar)</translation>
    </message>
    <message>
        <source>mmWS (mmWS)</source>
        <translation>мм вод. ст. (mmWS)</translation>
    </message>
    <message>
        <source>inchWS (inchWS)</source>
        <translation>дюйм вод. ст. (inchWS)</translation>
    </message>
    <message>
        <source>mmHg (mmHg)</source>
        <translation>мм рт. ст. (mmHg)</translation>
    </message>
    <message>
        <source>inchHg (inchHg)</source>
        <translation>дюйм рт. ст. (inchHg)</translation>
    </message>
    <message>
        <source>psi (lb/inch2)</source>
        <translation>psi (lb/inch2)</translation>
    </message>
    <message>
        <source>V</source>
        <translation>В</translation>
    </message>
    <message>
        <source>% (percent)</source>
        <translation>% (процент)</translation>
    </message>
    <message>
        <source>Null</source>
        <translation>Нуль</translation>
    </message>
    <message>
        <source>Not Used</source>
        <translation>Не используется</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Нет</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Неизвестно</translation>
    </message>
    <message>
        <source>Special</source>
        <translation>Особый</translation>
    </message>
    <message>
        <source>Linear</source>
        <translation>Линейная</translation>
    </message>
    <message>
        <source>Square root</source>
        <translation>Квадратный корень</translation>
    </message>
    <message>
        <source>Square root third power</source>
        <translation>Корень из третьей степени</translation>
    </message>
    <message>
        <source>Square root fifth power</source>
        <translation>Корень из пятой степени</translation>
    </message>
    <message>
        <source>Special curve</source>
        <translation>Особая кривая</translation>
    </message>
    <message>
        <source>Square</source>
        <translation>Квадрат</translation>
    </message>
    <message>
        <source>Discrete (switch)</source>
        <translation>Дискретная (ключ)</translation>
    </message>
    <message>
        <source>Code</source>
        <translation>Код</translation>
    </message>
    <message>
        <source>Class</source>
        <translation>Класс</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Значение</translation>
    </message>
    <message>
        <source>Unit</source>
        <translation>Единица</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Статус</translation>
    </message>
    <message>
        <source>code %1</source>
        <translation>код %1</translation>
    </message>
    <message>
        <source>write protection is enabled</source>
        <translation>включена защита от записи</translation>
    </message>
    <message>
        <source>Device variable %1</source>
        <translation>Переменная прибора %1</translation>
    </message>
    <message>
        <source>Try command 9 to get </source>
        <translation>Команда 9 для чтения </translation>
    </message>
    <message>
        <source>device variables</source>
        <translation>переменных прибора</translation>
    </message>
    <message>
        <source>Read device configuration</source>
        <translation>Чтение конфигурации прибора</translation>
    </message>
    <message>
        <source>Read device variable information</source>
        <translation>Чтение сведений о переменной прибора</translation>
    </message>
    <message>
        <source>Zero adjustment</source>
        <translation>Подстройка нуля</translation>
    </message>
    <message>
        <source>Do you want to set current
Primary Variable value=%1 %2
as Zero Value ?</source>
        <translation>Сделать текущее
значение первичной переменной=%1 %2
нулём?</translation>
    </message>
    <message>
        <source>Adjusting zero</source>
        <translation>Подстройка нуля</translation>
    </message>
    <message>
        <source>20mA adjustment</source>
        <translation>Подстройка 20 мА</translation>
    </message>
    <message>
        <source>4mA adjustment</source>
        <translation>Подстройка 4 мА</translation>
    </message>
    <message>
        <source>Have you set fixed loop current value at 20 mA ?</source>
        <translation>Фиксированный ток петли установлен на 20 мА?</translation>
    </message>
    <message>
        <source>Have you set fixed loop current value at 4 mA ?</source>
        <translation>Фиксированный ток петли установлен на 4 мА?</translation>
    </message>
    <message>
        <source>Do you really want to set the measured current value =%1 as 20 mA ?</source>
        <translation>Действительно записать измеренный ток =%1 как 20 мА?</translation>
    </message>
    <message>
        <source>Do you really want to set the measured current value=%1 as 4 mA ?</source>
        <translation>Действительно записать измеренный ток=%1 как 4 мА?</translation>
    </message>
</context>
<context>
    <name>Device</name>
    <message>
        <source>form device</source>
        <translation>из прибора</translation>
    </message>
    <message>
        <source>from file</source>
        <translation>из файла</translation>
    </message>
    <message>
        <source>changed</source>
        <translation>изменены</translation>
    </message>
    <message>
        <source>saved in device</source>
        <translation>сохранены в приборе</translation>
    </message>
    <message>
        <source>periodically requested</source>
        <translation>запрашиваются периодически</translation>
    </message>
    <message>
        <source>the device &apos;%1&apos; is not on a port</source>
        <translation>прибор &apos;%1&apos; не подключён к порту</translation>
    </message>
    <message>
        <source>error open port &apos;%1&apos; - %2</source>
        <translation>ошибка открытия порта &apos;%1&apos; - %2</translation>
    </message>
    <message>
        <source>Device status: [%1]</source>
        <translation>Статус прибора: [%1]</translation>
    </message>
    <message>
        <source>Success (processing time: %1ms)</source>
        <translation>Успешно (время обработки: %1ms)</translation>
    </message>
    <message>
        <source>reset</source>
        <translation>сброс</translation>
    </message>
    <message>
        <source>start</source>
        <translation>запуск</translation>
    </message>
    <message>
        <source>error %1 %2 %3 - %4</source>
        <translation>ошибка %1, %2: %3 - %4</translation>
    </message>
    <message>
        <source>executing</source>
        <translation>выполнение</translation>
    </message>
    <message>
        <source>get</source>
        <translation>получение</translation>
    </message>
    <message>
        <source>error %1 %2 - %3</source>
        <translation>ошибка %1, %2 - %3</translation>
    </message>
    <message>
        <source>writing</source>
        <translation>запись</translation>
    </message>
    <message>
        <source>error executing cmd=%1 - %2</source>
        <translation>ошибка выполнения cmd=%1 - %2</translation>
    </message>
    <message>
        <source>error %1 reading &apos;%2&apos; - %3</source>
        <translation>ошибка %1 чтения &apos;%2&apos; - %3</translation>
    </message>
    <message>
        <source>error %1 executing cmd=%2 - %3</source>
        <translation>ошибка %1 выполнения cmd=%2 - %3</translation>
    </message>
    <message>
        <source>
Error (processing time: %1ms)</source>
        <translation>
Ошибка (время обработки: %1ms)</translation>
    </message>
    <message>
        <source>reading %1 (cmd=%2)...</source>
        <translation>чтение: %1 (cmd=%2)...</translation>
    </message>
    <message>
        <source>writing %1</source>
        <translation>запись: %1</translation>
    </message>
    <message>
        <source>%1 (cmd=%2)...</source>
        <translation>%1 (cmd=%2)...</translation>
    </message>
    <message>
        <source>Get device ID by cmd %1 error:</source>
        <translation>Ошибка получения ID прибора командой %1:</translation>
    </message>
    <message>
        <source>Try to check %1 by tag &apos;%2&apos; via %3 ...</source>
        <translation>Попытка проверить %1 по тегу &apos;%2&apos; через %3 ...</translation>
    </message>
    <message>
        <source>Try to check %1 by long tag &apos;%2&apos; via %3 ...</source>
        <translation>Попытка проверить %1 по длинному тегу &apos;%2&apos; через %3 ...</translation>
    </message>
    <message>
        <source>Try to check %1 at address %2 via %3 ...</source>
        <translation>Попытка проверить %1 по адресу %2 через %3 ...</translation>
    </message>
    <message>
        <source>Checked successfully - %1 (%2 %3 exts:%4)!</source>
        <translation>Проверка успешна - %1 (%2 %3 exts:%4)!</translation>
    </message>
    <message>
        <source>Try to check %1 via %3 ...</source>
        <translation>Попытка проверить %1 через %3 ...</translation>
    </message>
    <message>
        <source>Checked successfully - %1!</source>
        <translation>Проверка успешна - %1!</translation>
    </message>
    <message>
        <source>Device ADC error code: %1</source>
        <translation>Код ошибки АЦП прибора: %1</translation>
    </message>
    <message>
        <source>The ADC is overloaded. Flags: 0x%1</source>
        <translation>АЦП перегружен. Флаги: 0x%1</translation>
    </message>
    <message>
        <source>Error of writing configuration to EEPROM.</source>
        <translation>Ошибка записи конфигурации в EEPROM.</translation>
    </message>
    <message>
        <source>Device configuration is restored (from the secondary page).</source>
        <translation>Конфигурация прибора восстановлена (со вторичной страницы).</translation>
    </message>
    <message>
        <source>Error of writing the device HART_UID to the EEPROM</source>
        <translation>Ошибка записи HART_UID прибора в EEPROM</translation>
    </message>
    <message>
        <source>Factory device number is restored (from the sub-page).</source>
        <translation>Заводской номер прибора восстановлен (с резервной подстраницы).</translation>
    </message>
    <message>
        <source>Device specific status: </source>
        <translation>Статус, специфичный для прибора: </translation>
    </message>
    <message>
        <source>Device requires maintenance.</source>
        <translation>Прибор требует технического обслуживания.</translation>
    </message>
    <message>
        <source>Device variable is in an Alarm state.</source>
        <translation>Переменная прибора находится в аварийном состоянии.</translation>
    </message>
    <message>
        <source>Non-Volatile Memory Defect.</source>
        <translation>Дефект энергонезависимой памяти.</translation>
    </message>
    <message>
        <source>Volatile Memory Defect.</source>
        <translation>Дефект энергозависимой памяти.</translation>
    </message>
    <message>
        <source>Voltage Conditions Out of Range.</source>
        <translation>Напряжение питания вне допустимого диапазона.</translation>
    </message>
    <message>
        <source>Additional status info:</source>
        <translation>Дополнительная информация о статусе:</translation>
    </message>
    <message>
        <source>device identifier</source>
        <translation>идентификатор прибора</translation>
    </message>
    <message>
        <source>PV</source>
        <translation>PV</translation>
    </message>
    <message>
        <source>output current</source>
        <translation>выходной ток</translation>
    </message>
    <message>
        <source>device variables &amp; output current</source>
        <translation>переменные прибора и выходной ток</translation>
    </message>
    <message>
        <source>polling address</source>
        <translation>адрес опроса</translation>
    </message>
    <message>
        <source>dynamic variable classifications</source>
        <translation>классификации динамических переменных</translation>
    </message>
    <message>
        <source>message</source>
        <translation>сообщение</translation>
    </message>
    <message>
        <source>tag, descriptor, data</source>
        <translation>тег, дескриптор, дата</translation>
    </message>
    <message>
        <source>PV sensor info (number &amp; range)</source>
        <translation>информация о датчике PV (номер и диапазон)</translation>
    </message>
    <message>
        <source>output info (range &amp; damping time)</source>
        <translation>информация о выходе (диапазон и время демпфирования)</translation>
    </message>
    <message>
        <source>final assembly number</source>
        <translation>номер окончательной сборки</translation>
    </message>
    <message>
        <source>long tag</source>
        <translation>длинный тег</translation>
    </message>
    <message>
        <source>device status info</source>
        <translation>информация о статусе прибора</translation>
    </message>
    <message>
        <source>dynamic variable assignments</source>
        <translation>назначение динамических переменных</translation>
    </message>
    <message>
        <source>find device</source>
        <translation>поиск прибора</translation>
    </message>
    <message>
        <source>Device command version is 5. Command #%1 not supported</source>
        <translation>Версия команд прибора - 5. Команда #%1 не поддерживается</translation>
    </message>
    <message>
        <source>long tag: &apos;</source>
        <translation>длинный тег: &apos;</translation>
    </message>
    <message>
        <source>get device variables with status</source>
        <translation>получение переменных прибора со статусом</translation>
    </message>
    <message>
        <source>get device identifier by tag</source>
        <translation>получение идентификатора прибора по тегу</translation>
    </message>
    <message>
        <source>get device identifier by long tag</source>
        <translation>получение идентификатора прибора по длинному тегу</translation>
    </message>
    <message>
        <source>get device variables</source>
        <translation>получение переменных прибора</translation>
    </message>
    <message>
        <source>damping value</source>
        <translation>значение демпфирования</translation>
    </message>
    <message>
        <source>range (min / max)</source>
        <translation>диапазон (мин / макс)</translation>
    </message>
    <message>
        <source>PV as upper range value</source>
        <translation>PV как верхнее значение диапазона</translation>
    </message>
    <message>
        <source>PV as lower range value</source>
        <translation>PV как нижнее значение диапазона</translation>
    </message>
    <message>
        <source>reset config changed flag </source>
        <translation>сброс флага изменения конфигурации </translation>
    </message>
    <message>
        <source>set fixed current</source>
        <translation>установка фиксированного тока</translation>
    </message>
    <message>
        <source>start device self test</source>
        <translation>запуск самотестирования прибора</translation>
    </message>
    <message>
        <source>reset device</source>
        <translation>сброс прибора</translation>
    </message>
    <message>
        <source>adjust zero</source>
        <translation>подстройка нуля</translation>
    </message>
    <message>
        <source>PV unit code</source>
        <translation>код единиц PV</translation>
    </message>
    <message>
        <source>adjust current 4 mA</source>
        <translation>подстройка тока 4 mA</translation>
    </message>
    <message>
        <source>adjust current 20 mA</source>
        <translation>подстройка тока 20 mA</translation>
    </message>
    <message>
        <source>PV transfer function</source>
        <translation>передаточная функция PV</translation>
    </message>
    <message>
        <source>reset additional status flag </source>
        <translation>сброс флага дополнительного статуса </translation>
    </message>
    <message>
        <source>sensor number</source>
        <translation>номер датчика</translation>
    </message>
    <message>
        <source>device variable units</source>
        <translation>единицы переменных прибора</translation>
    </message>
    <message>
        <source>get device variable information</source>
        <translation>получение информации о переменной прибора</translation>
    </message>
    <message>
        <source>response preambles count</source>
        <translation>количество преамбул ответа</translation>
    </message>
    <message>
        <source>set write protection by HART protocol</source>
        <translation>установка защиты от записи по протоколу HART</translation>
    </message>
    <message>
        <source>metrology access</source>
        <translation>доступ метролога</translation>
    </message>
    <message>
        <source>write factory number</source>
        <translation>запись заводского номера</translation>
    </message>
    <message>
        <source>*** cmdData != response</source>
        <translation>*** cmdData != ответ</translation>
    </message>
    <message>
        <source>the device &apos;%1&apos; has no protected function &apos;%2&apos; (cmd=%3)</source>
        <translation>у прибора &apos;%1&apos; нет защищённой функции &apos;%2&apos; (cmd=%3)</translation>
    </message>
    <message>
        <source>*** metrology access stays open</source>
        <translation>*** доступ метролога остаётся открытым</translation>
    </message>
    <message>
        <source>*** metrology access is not open</source>
        <translation>*** доступ метролога не открыт</translation>
    </message>
    <message>
        <source>the factory number must have 3 bytes, not %1</source>
        <translation>заводской номер должен состоять из 3 байтов, а не из %1</translation>
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
        <translation>галлоны</translation>
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
        <translation>дюймы</translation>
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
        <translation>минуты</translation>
    </message>
    <message>
        <source>seconds</source>
        <translation>секунды</translation>
    </message>
    <message>
        <source>hours</source>
        <translation>часы</translation>
    </message>
    <message>
        <source>days</source>
        <translation>сутки</translation>
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
        <translation>тонны</translation>
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
        <translation>Не классифицировано</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Температура</translation>
    </message>
    <message>
        <source>Pressure</source>
        <translation>Давление</translation>
    </message>
    <message>
        <source>Volumetric Flow</source>
        <translation>Объёмный расход</translation>
    </message>
    <message>
        <source>Velocity</source>
        <translation>Скорость</translation>
    </message>
    <message>
        <source>Volume</source>
        <translation>Объём</translation>
    </message>
    <message>
        <source>Length</source>
        <translation>Длина</translation>
    </message>
    <message>
        <source>Time</source>
        <translation>Время</translation>
    </message>
    <message>
        <source>Mass</source>
        <translation>Масса</translation>
    </message>
    <message>
        <source>Mass Flow</source>
        <translation>Массовый расход</translation>
    </message>
    <message>
        <source>Mass Per Volume</source>
        <translation>Масса на единицу объёма</translation>
    </message>
    <message>
        <source>Viscosity</source>
        <translation>Вязкость</translation>
    </message>
    <message>
        <source>Angular Velocity</source>
        <translation>Угловая скорость</translation>
    </message>
    <message>
        <source>Area</source>
        <translation>Площадь</translation>
    </message>
    <message>
        <source>Energy (Work)</source>
        <translation>Энергия (работа)</translation>
    </message>
    <message>
        <source>Force</source>
        <translation>Сила</translation>
    </message>
    <message>
        <source>Power</source>
        <translation>Мощность</translation>
    </message>
    <message>
        <source>Frequency</source>
        <translation>Частота</translation>
    </message>
    <message>
        <source>Analytical</source>
        <translation>Аналитическая</translation>
    </message>
    <message>
        <source>Capacitance</source>
        <translation>Ёмкость</translation>
    </message>
    <message>
        <source>Emf</source>
        <translation>ЭДС</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Ток</translation>
    </message>
    <message>
        <source>Resistance</source>
        <translation>Сопротивление</translation>
    </message>
    <message>
        <source>Angle</source>
        <translation>Угол</translation>
    </message>
    <message>
        <source>Conductance</source>
        <translation>Проводимость</translation>
    </message>
    <message>
        <source>Volume Per Volume</source>
        <translation>Объём на единицу объёма</translation>
    </message>
    <message>
        <source>Volume Per Mass</source>
        <translation>Объём на единицу массы</translation>
    </message>
    <message>
        <source>Concentration</source>
        <translation>Концентрация</translation>
    </message>
    <message>
        <source>Valve Actuator</source>
        <translation>Исполнительный механизм клапана</translation>
    </message>
    <message>
        <source>Level</source>
        <translation>Уровень</translation>
    </message>
    <message>
        <source>Vortex Flow</source>
        <translation>Расход (вихревой)</translation>
    </message>
    <message>
        <source>Mag Flow</source>
        <translation>Расход (электромагнитный)</translation>
    </message>
    <message>
        <source>Coriolis Flow</source>
        <translation>Расход (кориолисов)</translation>
    </message>
    <message>
        <source>Turbidity</source>
        <translation>Мутность</translation>
    </message>
    <message>
        <source>Not used</source>
        <translation>Не используется</translation>
    </message>
    <message>
        <source>Reserved</source>
        <translation>Зарезервировано</translation>
    </message>
    <message>
        <source>Valve / Actuator</source>
        <translation>Клапан / привод</translation>
    </message>
    <message>
        <source>Simple PID Control</source>
        <translation>Простое ПИД-регулирование</translation>
    </message>
    <message>
        <source>Conductivity</source>
        <translation>Электропроводность</translation>
    </message>
    <message>
        <source>Totalizer</source>
        <translation>Сумматор</translation>
    </message>
    <message>
        <source>Not Used</source>
        <translation>Не используется</translation>
    </message>
    <message>
        <source>Bad</source>
        <translation>Плохое</translation>
    </message>
    <message>
        <source>Poor Accuracy</source>
        <translation>Низкая точность</translation>
    </message>
    <message>
        <source>Manual/Fixed</source>
        <translation>Ручное/фиксированное</translation>
    </message>
    <message>
        <source>Good</source>
        <translation>Хорошее</translation>
    </message>
    <message>
        <source>Not Limited</source>
        <translation>Без ограничения</translation>
    </message>
    <message>
        <source>Low Limited</source>
        <translation>Ограничено снизу</translation>
    </message>
    <message>
        <source>High Limited</source>
        <translation>Ограничено сверху</translation>
    </message>
    <message>
        <source>Constant</source>
        <translation>Постоянное</translation>
    </message>
    <message>
        <source>Manufacturer Specific</source>
        <translation>Определяется производителем</translation>
    </message>
    <message>
        <source>High</source>
        <translation>Высокий</translation>
    </message>
    <message>
        <source>Low</source>
        <translation>Низкий</translation>
    </message>
    <message>
        <source>Hold Last Output Value</source>
        <translation>Удерживать последнее значение выхода</translation>
    </message>
    <message>
        <source>None</source>
        <translation>Нет</translation>
    </message>
    <message>
        <source>Unknown</source>
        <translation>Неизвестно</translation>
    </message>
    <message>
        <source>Special</source>
        <translation>Особый</translation>
    </message>
</context>
<context>
    <name>DeviceAddDialog</name>
    <message>
        <source>Select device template...</source>
        <translation>Выбор шаблона прибора...</translation>
    </message>
    <message>
        <source>Name</source>
        <translation>Имя</translation>
    </message>
    <message>
        <source>Template</source>
        <translation>Шаблон</translation>
    </message>
    <message>
        <source>Producer</source>
        <translation>Производитель</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Описание</translation>
    </message>
    <message>
        <source>Version</source>
        <translation>Версия</translation>
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
        <translation>Преобразователь температуры</translation>
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
        <translation>Преобразователь давления</translation>
    </message>
    <message>
        <source>pH-7702</source>
        <translation>pH-7702</translation>
    </message>
    <message>
        <source>pH-meter</source>
        <translation>pH-метр</translation>
    </message>
    <message>
        <source>General</source>
        <translation>General</translation>
    </message>
    <message>
        <source>Anyone</source>
        <translation>Любой</translation>
    </message>
    <message>
        <source>Only universal and common (partly) functions</source>
        <translation>Только универсальные и (частично) общие функции</translation>
    </message>
</context>
<context>
    <name>DeviceWidget</name>
    <message>
        <source>Custom</source>
        <translation>Команды</translation>
    </message>
    <message>
        <source>Measurement</source>
        <translation>Измерения</translation>
    </message>
    <message>
        <source>Metrologic</source>
        <translation>Метрология</translation>
    </message>
    <message>
        <source>Hart Log</source>
        <translation>Журнал HART</translation>
    </message>
</context>
<context>
    <name>FactoryNumberDialog</name>
    <message>
        <source>Factory number</source>
        <translation>Заводской номер</translation>
    </message>
    <message>
        <source>Device:</source>
        <translation>Прибор:</translation>
    </message>
    <message>
        <source>Long address:</source>
        <translation>Длинный адрес:</translation>
    </message>
    <message>
        <source>Access code:</source>
        <translation>Код доступа:</translation>
    </message>
    <message>
        <source>Factory number:</source>
        <translation>Заводской номер:</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>Записать</translation>
    </message>
    <message>
        <source>not identified</source>
        <translation>не идентифицирован</translation>
    </message>
    <message>
        <source>The access code is a number from 0 to 4294967295.</source>
        <translation>Код доступа - число от 0 до 4294967295.</translation>
    </message>
    <message>
        <source>The factory number is a number from 0 to %1.</source>
        <translation>Заводской номер - число от 0 до %1.</translation>
    </message>
    <message>
        <source>The access code was refused: %1</source>
        <translation>Код доступа отклонён: %1</translation>
    </message>
    <message>
        <source>Factory number %1 written. Long address: %2.</source>
        <translation>Заводской номер %1 записан. Длинный адрес: %2.</translation>
    </message>
    <message>
        <source>The factory number was not written: %1</source>
        <translation>Заводской номер не записан: %1</translation>
    </message>
    <message>
        <source>Access was not closed: %1</source>
        <translation>Доступ не закрыт: %1</translation>
    </message>
</context>
<context>
    <name>FileThread</name>
    <message>
        <source>Name is empty.</source>
        <translation>Имя не задано.</translation>
    </message>
    <message>
        <source>Date is invalid.</source>
        <translation>Недопустимая дата.</translation>
    </message>
    <message>
        <source>Can&apos;t create archive path %1</source>
        <translation>Не удалось создать путь архива %1</translation>
    </message>
    <message>
        <source>Can&apos;t open %1 for write, error code %2</source>
        <translation>Не удалось открыть %1 для записи, код ошибки %2</translation>
    </message>
    <message>
        <source>Write error in file %1, error code %2</source>
        <translation>Ошибка записи в файл %1, код ошибки %2</translation>
    </message>
    <message>
        <source>Reinitialization error - File %1 was deleted, %2</source>
        <translation>Ошибка повторной инициализации - файл %1 был удалён, %2</translation>
    </message>
    <message>
        <source>Can&apos;t open %1 for append, error code %2</source>
        <translation>Не удалось открыть %1 для дозаписи, код ошибки %2</translation>
    </message>
</context>
<context>
    <name>FindDeviceDialog</name>
    <message>
        <source>Search device ...</source>
        <translation>Поиск устройств ...</translation>
    </message>
    <message>
        <source>Ports</source>
        <translation>Порты</translation>
    </message>
    <message>
        <source>The lines to scan: every ticked line is scanned, in this order.</source>
        <translation>Линии для поиска: каждая отмеченная линия опрашивается в этом порядке.</translation>
    </message>
    <message>
        <source>Open port...</source>
        <translation>Открыть порт...</translation>
    </message>
    <message>
        <source>Choose a serial line of this computer, or type the path of one (a pseudo-terminal, /dev/serial/by-id/...) and press Enter: it joins the list, ticked.</source>
        <translation>Выберите последовательный порт компьютера или введите его путь (псевдотерминал, /dev/serial/by-id/...) и нажмите Enter: порт добавится в список отмеченным.</translation>
    </message>
    <message>
        <source>Refresh Port List</source>
        <translation>Обновить список портов</translation>
    </message>
    <message>
        <source>Address from:</source>
        <translation>Адреса с:</translation>
    </message>
    <message>
        <source>to:</source>
        <translation>по:</translation>
    </message>
    <message>
        <source>The scan stops before this address: 16 scans up to 15, 64 scans every polling address.</source>
        <translation>Поиск останавливается перед этим адресом: 16 — опрос до 15, 64 — опрос всех адресов.</translation>
    </message>
    <message>
        <source>Response timeout:</source>
        <translation>Тайм-аут ответа:</translation>
    </message>
    <message>
        <source>How long to wait for the first byte of an answer; the default is 370 ms, and an answer ends after a pause of half this time (50 ms by default).</source>
        <translation>Сколько ждать первого байта ответа; по умолчанию 370 мс. Ответ заканчивается паузой в половину этого времени (по умолчанию 50 мс).</translation>
    </message>
    <message>
        <source>default</source>
        <translation>по умолчанию</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>мс</translation>
    </message>
    <message>
        <source>Start Find</source>
        <translation>Начать поиск</translation>
    </message>
    <message>
        <source>Port</source>
        <translation>Порт</translation>
    </message>
    <message>
        <source>Address</source>
        <translation>Адрес</translation>
    </message>
    <message>
        <source>Long Address</source>
        <translation>Длинный адрес</translation>
    </message>
    <message>
        <source>Tag</source>
        <translation>Тег</translation>
    </message>
    <message>
        <source>Description</source>
        <translation>Описание</translation>
    </message>
    <message>
        <source>Date</source>
        <translation>Дата</translation>
    </message>
    <message>
        <source>Template</source>
        <translation>Шаблон</translation>
    </message>
    <message>
        <source>Scanning ...</source>
        <translation>Поиск ...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Cannot open the port %1:
%2</source>
        <translation>Не удалось открыть порт %1:
%2</translation>
    </message>
    <message>
        <source>Search by address %1 via %2 ...</source>
        <translation>Поиск по адресу %1 через %2 ...</translation>
    </message>
</context>
<context>
    <name>HartCommand</name>
    <message>
        <source>*** parity error</source>
        <translation>*** ошибка чётности</translation>
    </message>
    <message>
        <source>*** speed overflow error</source>
        <translation>*** ошибка переполнения (скорость)</translation>
    </message>
    <message>
        <source>*** synhronization (frame) error</source>
        <translation>*** ошибка синхронизации (кадра)</translation>
    </message>
    <message>
        <source>*** checksum error</source>
        <translation>*** ошибка контрольной суммы</translation>
    </message>
    <message>
        <source>*** receive buffer overflow error</source>
        <translation>*** переполнение приёмного буфера</translation>
    </message>
    <message>
        <source>*** Field device malfunction</source>
        <translation>*** Неисправность полевого устройства</translation>
    </message>
    <message>
        <source>*** Configuration changed</source>
        <translation>*** Конфигурация изменена</translation>
    </message>
    <message>
        <source>*** Cold start</source>
        <translation>*** Холодный старт</translation>
    </message>
    <message>
        <source>*** More status available</source>
        <translation>*** Доступен расширенный статус</translation>
    </message>
    <message>
        <source>*** Analogue output fixed</source>
        <translation>*** Аналоговый выход зафиксирован</translation>
    </message>
    <message>
        <source>*** Analogue output out of limits</source>
        <translation>*** Аналоговый выход вне пределов</translation>
    </message>
    <message>
        <source>*** Non-primary variable out of limits</source>
        <translation>*** Неосновная переменная вне пределов</translation>
    </message>
    <message>
        <source>*** Primary variable out of limits</source>
        <translation>*** Основная переменная вне пределов</translation>
    </message>
    <message>
        <source>*** wrong choice</source>
        <translation>*** неверный выбор</translation>
    </message>
    <message>
        <source>*** last parameter too large</source>
        <translation>*** последний параметр слишком велик</translation>
    </message>
    <message>
        <source>*** last parameter too small</source>
        <translation>*** последний параметр слишком мал</translation>
    </message>
    <message>
        <source>*** too few data bytes have been received</source>
        <translation>*** принято слишком мало байтов данных</translation>
    </message>
    <message>
        <source>*** command not executed</source>
        <translation>*** команда не выполнена</translation>
    </message>
    <message>
        <source>*** write protection mode set</source>
        <translation>*** установлен режим защиты от записи</translation>
    </message>
    <message>
        <source>*** update in progress</source>
        <translation>*** идёт обновление</translation>
    </message>
    <message>
        <source>*** linearization point not used</source>
        <translation>*** точка линеаризации не используется</translation>
    </message>
    <message>
        <source>*** temperature is different from previous value at this point</source>
        <translation>*** температура отличается от прежнего значения в этой точке</translation>
    </message>
    <message>
        <source>*** incorrect input signal type selected</source>
        <translation>*** выбран неверный тип входного сигнала</translation>
    </message>
    <message>
        <source>*** the lower range limit greater of maximum allowable value</source>
        <translation>*** нижний предел диапазона больше максимально допустимого значения</translation>
    </message>
    <message>
        <source>*** PV value is greater of upper range limit</source>
        <translation>*** значение PV больше верхнего предела диапазона</translation>
    </message>
    <message>
        <source>*** mismatch counter configuration change</source>
        <translation>*** несовпадение счётчика изменений конфигурации</translation>
    </message>
    <message>
        <source>*** incorrect fixed current value</source>
        <translation>*** неверное значение фиксированного тока</translation>
    </message>
    <message>
        <source>*** number of decimal places is too large</source>
        <translation>*** слишком много знаков после запятой</translation>
    </message>
    <message>
        <source>*** value set is too large</source>
        <translation>*** заданное значение слишком велико</translation>
    </message>
    <message>
        <source>*** the lower range limit less of minimum  allowable value</source>
        <translation>*** нижний предел диапазона меньше минимально допустимого значения</translation>
    </message>
    <message>
        <source>*** PV value is less of lower range limit</source>
        <translation>*** значение PV меньше нижнего предела диапазона</translation>
    </message>
    <message>
        <source>*** value set is too small</source>
        <translation>*** заданное значение слишком мало</translation>
    </message>
    <message>
        <source>*** the upper range limit greater of maximum allowable value</source>
        <translation>*** верхний предел диапазона больше максимально допустимого значения</translation>
    </message>
    <message>
        <source>*** current output off - device in multidrop mode</source>
        <translation>*** токовый выход выключен - устройство в многоточечном режиме</translation>
    </message>
    <message>
        <source>*** loop Current Not Active (Device in Multidrop Mode)</source>
        <translation>*** ток петли не активен (устройство в многоточечном режиме)</translation>
    </message>
    <message>
        <source>*** current output mode incorrect selection</source>
        <translation>*** неверно выбран режим токового выхода</translation>
    </message>
    <message>
        <source>*** the upper range value less of minimum  allowable value</source>
        <translation>*** верхнее значение диапазона меньше минимально допустимого значения</translation>
    </message>
    <message>
        <source>*** saved factory settings are missing</source>
        <translation>*** сохранённые заводские настройки отсутствуют</translation>
    </message>
    <message>
        <source>*** unrecognized error 12</source>
        <translation>*** нераспознанная ошибка 12</translation>
    </message>
    <message>
        <source>*** upper and lower conversion limits are out of permissible values</source>
        <translation>*** верхний и нижний пределы преобразования вне допустимых значений</translation>
    </message>
    <message>
        <source>*** the minimum range is too small - impaired accuracy</source>
        <translation>*** минимальный диапазон слишком мал - точность снижена</translation>
    </message>
    <message>
        <source>*** restricted access</source>
        <translation>*** доступ ограничен</translation>
    </message>
    <message>
        <source>*** invalid unit code</source>
        <translation>*** неверный код единиц измерения</translation>
    </message>
    <message>
        <source>*** invalid range</source>
        <translation>*** неверный диапазон</translation>
    </message>
    <message>
        <source>*** device is busy</source>
        <translation>*** устройство занято</translation>
    </message>
    <message>
        <source>*** command not implemented</source>
        <translation>*** команда не реализована</translation>
    </message>
    <message>
        <source>*** Invalid message size for command parsing: %1</source>
        <translation>*** Неверный размер сообщения для разбора команды: %1</translation>
    </message>
    <message>
        <source>*** Start of message not found!</source>
        <translation>*** Начало сообщения не найдено!</translation>
    </message>
    <message>
        <source>*** Unexpected end of message!</source>
        <translation>*** Неожиданный конец сообщения!</translation>
    </message>
    <message>
        <source>*** Invalid delimiter: %1</source>
        <translation>*** Неверный разделитель: %1</translation>
    </message>
    <message>
        <source>*** Invalid dataLength (=1)</source>
        <translation>*** Неверная длина данных (=1)</translation>
    </message>
    <message>
        <source>*** Checksum is wrong!</source>
        <translation>*** Неверная контрольная сумма!</translation>
    </message>
    <message>
        <source>*** start delimiter check error:  %1 / %2</source>
        <translation>*** ошибка проверки начального разделителя:  %1 / %2</translation>
    </message>
    <message>
        <source>*** command number check error:  %1 / %2</source>
        <translation>*** ошибка проверки номера команды:  %1 / %2</translation>
    </message>
    <message>
        <source>*** address check error: %1</source>
        <translation>*** ошибка проверки адреса: %1</translation>
    </message>
    <message>
        <source>Communication error:</source>
        <translation>Ошибка связи:</translation>
    </message>
    <message>
        <source>Command error (error code %1): </source>
        <translation>Ошибка команды (код ошибки %1): </translation>
    </message>
    <message>
        <source>*** unknown error code: %1 hex: %2</source>
        <translation>*** неизвестный код ошибки: %1 hex: %2</translation>
    </message>
</context>
<context>
    <name>HartPort</name>
    <message>
        <source>Response command parsing error: </source>
        <translation>Ошибка разбора ответа на команду: </translation>
    </message>
    <message>
        <source>Invalid command response: </source>
        <translation>Неверный ответ на команду: </translation>
    </message>
    <message>
        <source>Invalid response lenght of command ZERO.</source>
        <translation>Неверная длина ответа на команду ZERO.</translation>
    </message>
    <message>
        <source>Request timeout</source>
        <translation>Тайм-аут запроса</translation>
    </message>
    <message>
        <source>Response timeout (%1ms)</source>
        <translation>Тайм-аут ответа (%1ms)</translation>
    </message>
</context>
<context>
    <name>HelpViewer</name>
    <message>
        <source>Help</source>
        <translation>Справка</translation>
    </message>
    <message>
        <source>Close</source>
        <translation>Закрыть</translation>
    </message>
    <message>
        <source>Can&apos;t open help file</source>
        <translation>Не удалось открыть файл справки</translation>
    </message>
</context>
<context>
    <name>LogWidget</name>
    <message>
        <source>HART log</source>
        <translation>Журнал HART</translation>
    </message>
    <message>
        <source>Lines:</source>
        <translation>Строк:</translation>
    </message>
    <message>
        <source>Lines kept in the view</source>
        <translation>Сколько строк хранить в окне</translation>
    </message>
    <message>
        <source>Search:</source>
        <translation>Поиск:</translation>
    </message>
    <message>
        <source>Find previous</source>
        <translation>Найти предыдущее</translation>
    </message>
    <message>
        <source>Up</source>
        <translation>Вверх</translation>
    </message>
    <message>
        <source>Find next</source>
        <translation>Найти следующее</translation>
    </message>
    <message>
        <source>Down</source>
        <translation>Вниз</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Очистить</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Сохранить как...</translation>
    </message>
    <message>
        <source>Logs (*.log);;All files (*.*)</source>
        <translation>Журналы (*.log);;Все файлы (*.*)</translation>
    </message>
    <message>
        <source>Save report</source>
        <translation>Сохранение отчёта</translation>
    </message>
    <message>
        <source>Cannot open file for writing log: %1</source>
        <translation>Не удалось открыть файл для записи журнала: %1</translation>
    </message>
</context>
<context>
    <name>MainDeviceWidget</name>
    <message>
        <source>Adjustment</source>
        <translation>Подстройка</translation>
    </message>
    <message>
        <source>You must first read the device configuration!</source>
        <translation>Сначала прочитайте конфигурацию прибора!</translation>
    </message>
    <message>
        <source>Write changes to device</source>
        <translation>Запись изменений в прибор</translation>
    </message>
    <message>
        <source>The device is write-protected!</source>
        <translation>Устройство защищено от записи!</translation>
    </message>
    <message>
        <source>Changes</source>
        <translation>Изменения</translation>
    </message>
    <message>
        <source>Do you want to save your changes of the settings in the device?</source>
        <translation>Записать изменения настроек в прибор?</translation>
    </message>
    <message>
        <source>You are in metrology mode and really want to record changes to the settings in the device?</source>
        <translation>Вы в режиме метрологии. Действительно записать изменения настроек в прибор?</translation>
    </message>
    <message>
        <source>Write device configuration</source>
        <translation>Запись конфигурации прибора</translation>
    </message>
    <message>
        <source>Fixed current setting</source>
        <translation>Установка фиксированного тока</translation>
    </message>
    <message>
        <source>Current adjustment 4 mA</source>
        <translation>Подстройка тока 4 мА</translation>
    </message>
    <message>
        <source>Current adjustment 20 mA</source>
        <translation>Подстройка тока 20 мА</translation>
    </message>
    <message>
        <source>Manufacturer setting</source>
        <translation>Заводская настройка</translation>
    </message>
    <message>
        <source>Do you really want to save current device settings as manufacturer setting?
Previously saved device settings will be lost!</source>
        <translation>Действительно сохранить текущие настройки прибора как заводские?
Ранее сохранённые настройки будут потеряны!</translation>
    </message>
    <message>
        <source>Do you really want to restore manufacturer settings ?
All current device settings will be lost!</source>
        <translation>Действительно восстановить заводские настройки?
Все текущие настройки прибора будут потеряны!</translation>
    </message>
    <message>
        <source>Manufacturer settings</source>
        <translation>Заводские настройки</translation>
    </message>
    <message>
        <source>Do you want to write current
Primary Variable value=%1 %2
as Upper Range Value ?</source>
        <translation>Записать текущее
значение первичной переменной=%1 %2
как верхнюю границу диапазона?</translation>
    </message>
    <message>
        <source>Do you want to write current
Primary Variable value=%1 %2
as Lower Range Value ?</source>
        <translation>Записать текущее
значение первичной переменной=%1 %2
как нижнюю границу диапазона?</translation>
    </message>
    <message>
        <source>Setting the conversion range</source>
        <translation>Установка диапазона преобразования</translation>
    </message>
    <message>
        <source>Setting the high range limit</source>
        <translation>Установка верхней границы диапазона</translation>
    </message>
    <message>
        <source>Setting the lower range limit</source>
        <translation>Установка нижней границы диапазона</translation>
    </message>
</context>
<context>
    <name>MainWindow</name>
    <message>
        <source>Objects</source>
        <translation>Объекты</translation>
    </message>
    <message>
        <source>File</source>
        <translation>Файл</translation>
    </message>
    <message>
        <source>Edit</source>
        <translation>Правка</translation>
    </message>
    <message>
        <source>Tools</source>
        <translation>Сервис</translation>
    </message>
    <message>
        <source>Help</source>
        <translation>Справка</translation>
    </message>
    <message>
        <source>Tool bar</source>
        <translation>Панель инструментов</translation>
    </message>
    <message>
        <source>New</source>
        <translation>Создать</translation>
    </message>
    <message>
        <source>Open</source>
        <translation>Открыть</translation>
    </message>
    <message>
        <source>Save</source>
        <translation>Сохранить</translation>
    </message>
    <message>
        <source>Save As</source>
        <translation>Сохранить как</translation>
    </message>
    <message>
        <source>Exit</source>
        <translation>Выход</translation>
    </message>
    <message>
        <source>Add</source>
        <translation>Добавить</translation>
    </message>
    <message>
        <source>Remove</source>
        <translation>Удалить</translation>
    </message>
    <message>
        <source>Copy</source>
        <translation>Копировать</translation>
    </message>
    <message>
        <source>Paste</source>
        <translation>Вставить</translation>
    </message>
    <message>
        <source>Save Device As Template</source>
        <translation>Сохранить прибор как шаблон</translation>
    </message>
    <message>
        <source>Find</source>
        <translation>Поиск</translation>
    </message>
    <message>
        <source>Test</source>
        <translation>Тест</translation>
    </message>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>Factory Number...</source>
        <translation>Заводской номер...</translation>
    </message>
    <message>
        <source>Configuration files (*.cfg);;All files (*)</source>
        <translation>Файлы конфигурации (*.cfg);;Все файлы (*)</translation>
    </message>
    <message>
        <source>Ports &amp; Devices</source>
        <translation>Порты и приборы</translation>
    </message>
    <message>
        <source>Version: %1</source>
        <translation>Версия: %1</translation>
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
        <translation>Без имени</translation>
    </message>
    <message>
        <source>%1 - [*]%2</source>
        <translation>%1 - [*]%2</translation>
    </message>
    <message>
        <source>ports: %1, devices: %2</source>
        <translation>портов: %1, приборов: %2</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>can&apos;t remove file &apos;%1&apos;, &apos;%2&apos;</source>
        <translation>не удалось удалить файл &apos;%1&apos;, &apos;%2&apos;</translation>
    </message>
    <message>
        <source>Backup config file</source>
        <translation>Резервная копия файла конфигурации</translation>
    </message>
    <message>
        <source>can&apos;t copy file &apos;%1&apos; to &apos;%2&apos;, &apos;%3&apos;</source>
        <translation>не удалось скопировать файл &apos;%1&apos; в &apos;%2&apos;, &apos;%3&apos;</translation>
    </message>
    <message>
        <source>backup file &apos;%1&apos; not exists!</source>
        <translation>резервный файл &apos;%1&apos; не существует!</translation>
    </message>
    <message>
        <source>Rollback config file</source>
        <translation>Откат файла конфигурации</translation>
    </message>
    <message>
        <source>Config file write error!</source>
        <translation>Ошибка записи файла конфигурации!</translation>
    </message>
    <message>
        <source>Configuration saved on %1</source>
        <translation>Конфигурация сохранена %1</translation>
    </message>
    <message>
        <source>Do you want to save your configuration?</source>
        <translation>Сохранить конфигурацию?</translation>
    </message>
    <message>
        <source>Save As..</source>
        <translation>Сохранить как..</translation>
    </message>
    <message>
        <source>Configuration saved on %1 in file %2</source>
        <translation>Конфигурация сохранена %1 в файл %2</translation>
    </message>
    <message>
        <source>Configuration has been modified.
Do you want to save your changes?</source>
        <translation>Конфигурация изменена.
Сохранить изменения?</translation>
    </message>
    <message>
        <source>Are you sure you want to exit the application ?</source>
        <translation>Вы действительно хотите выйти из программы?</translation>
    </message>
    <message>
        <source>Open cfg..</source>
        <translation>Открыть cfg..</translation>
    </message>
    <message>
        <source>Port %1</source>
        <translation>Порт %1</translation>
    </message>
    <message>
        <source>Select an instrument of our maker to write its factory number.</source>
        <translation>Выберите прибор нашего производства, чтобы записать его заводской номер.</translation>
    </message>
    <message>
        <source>The device %1 has no factory number.</source>
        <translation>У прибора %1 нет заводского номера.</translation>
    </message>
    <message>
        <source>%1 at address %2 of %3</source>
        <translation>%1 по адресу %2 порта %3</translation>
    </message>
    <message>
        <source>These devices are in the tree already and were not added again:
%1</source>
        <translation>Эти устройства уже есть в дереве и повторно не добавлены:
%1</translation>
    </message>
    <message>
        <source>Wait until the exchange with the device has ended</source>
        <translation>Дождитесь окончания обмена с устройством</translation>
    </message>
    <message>
        <source>The device %1 is being polled.
Stop polling before searching the lines.</source>
        <translation>Прибор %1 опрашивается.
Остановите опрос перед поиском на линиях.</translation>
    </message>
</context>
<context>
    <name>MeasureWidget</name>
    <message>
        <source>Measurement</source>
        <translation>Измерения</translation>
    </message>
    <message>
        <source>Polling</source>
        <translation>Опрос</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Старт</translation>
    </message>
    <message>
        <source>Start or stop polling the device (command 3)</source>
        <translation>Начать или остановить опрос прибора (команда 3)</translation>
    </message>
    <message>
        <source>Polling period</source>
        <translation>Период опроса</translation>
    </message>
    <message>
        <source>Write archive</source>
        <translation>Писать архив</translation>
    </message>
    <message>
        <source>Write every reading to a CSV file in the archive folder</source>
        <translation>Записывать каждое показание в файл CSV в папке архива</translation>
    </message>
    <message>
        <source> lines</source>
        <translation> строк</translation>
    </message>
    <message>
        <source>Readings gathered before each write to the file</source>
        <translation>Сколько показаний накопить перед записью в файл</translation>
    </message>
    <message>
        <source>Follow</source>
        <translation>Следить</translation>
    </message>
    <message>
        <source>Scroll the table and the plot to the last reading</source>
        <translation>Прокручивать таблицу и график к последнему показанию</translation>
    </message>
    <message>
        <source>Last reading</source>
        <translation>Последнее показание</translation>
    </message>
    <message>
        <source>PV</source>
        <translation>PV</translation>
    </message>
    <message>
        <source>Show PV on the plot</source>
        <translation>Показывать PV на графике</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Ток</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>мА</translation>
    </message>
    <message>
        <source>SV</source>
        <translation>SV</translation>
    </message>
    <message>
        <source>Show SV on the plot</source>
        <translation>Показывать SV на графике</translation>
    </message>
    <message>
        <source>TV</source>
        <translation>TV</translation>
    </message>
    <message>
        <source>Show TV on the plot</source>
        <translation>Показывать TV на графике</translation>
    </message>
    <message>
        <source>QV</source>
        <translation>QV</translation>
    </message>
    <message>
        <source>Show QV on the plot</source>
        <translation>Показывать QV на графике</translation>
    </message>
    <message>
        <source>Plot view</source>
        <translation>Вид графика</translation>
    </message>
    <message>
        <source>Y:</source>
        <translation>Y:</translation>
    </message>
    <message>
        <source>From:</source>
        <translation>С:</translation>
    </message>
    <message>
        <source>To:</source>
        <translation>По:</translation>
    </message>
    <message>
        <source>Span:</source>
        <translation>Интервал:</translation>
    </message>
    <message>
        <source> min</source>
        <translation> мин</translation>
    </message>
    <message>
        <source>The time the plot shows when polling starts</source>
        <translation>Сколько времени показывает график в начале опроса</translation>
    </message>
    <message>
        <source>Apply</source>
        <translation>Применить</translation>
    </message>
    <message>
        <source>Show the plot between the edges above</source>
        <translation>Показать график в заданных выше границах</translation>
    </message>
    <message>
        <source>Show all</source>
        <translation>Показать всё</translation>
    </message>
    <message>
        <source>Show every point of the plot</source>
        <translation>Показать все точки графика</translation>
    </message>
    <message>
        <source>Save table...</source>
        <translation>Сохранить таблицу...</translation>
    </message>
    <message>
        <source>Save the readings of the table as a CSV file</source>
        <translation>Сохранить показания таблицы в файл CSV</translation>
    </message>
    <message>
        <source>Save plot...</source>
        <translation>Сохранить график...</translation>
    </message>
    <message>
        <source>Save the plot as a PNG picture, with a black and white copy</source>
        <translation>Сохранить график в PNG и его чёрно-белую копию</translation>
    </message>
    <message>
        <source>Clear</source>
        <translation>Очистить</translation>
    </message>
    <message>
        <source>Clear the table and the plot</source>
        <translation>Очистить таблицу и график</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>мс</translation>
    </message>
    <message>
        <source>s</source>
        <translation>с</translation>
    </message>
    <message>
        <source>min</source>
        <translation>мин</translation>
    </message>
    <message>
        <source>h</source>
        <translation>ч</translation>
    </message>
    <message>
        <source>Stop</source>
        <translation>Стоп</translation>
    </message>
    <message>
        <source>Archive</source>
        <translation>Архив</translation>
    </message>
    <message>
        <source>Min Y value</source>
        <translation>Минимум Y</translation>
    </message>
    <message>
        <source>The entered value Min Y (%1) is greater than Max Y (%2)!</source>
        <translation>Введённое значение Min Y (%1) больше Max Y (%2)!</translation>
    </message>
    <message>
        <source>Max Y value</source>
        <translation>Максимум Y</translation>
    </message>
    <message>
        <source>The entered value Max Y (%1) less than Min Y (%2)!</source>
        <translation>Введённое значение Max Y (%1) меньше Min Y (%2)!</translation>
    </message>
    <message>
        <source>Min X value</source>
        <translation>Минимум X</translation>
    </message>
    <message>
        <source>The entered value Min X (%1) is greater than Max X (%2)!</source>
        <translation>Введённое значение Min X (%1) больше Max X (%2)!</translation>
    </message>
    <message>
        <source>Max X value</source>
        <translation>Максимум X</translation>
    </message>
    <message>
        <source>The entered value Max X (%1) less than Min X (%2)!</source>
        <translation>Введённое значение Max X (%1) меньше Min X (%2)!</translation>
    </message>
    <message>
        <source>Clear data...</source>
        <translation>Очистка данных...</translation>
    </message>
    <message>
        <source>Do you really want to clear ALL data?</source>
        <translation>Действительно очистить ВСЕ данные?</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Сохранить как...</translation>
    </message>
    <message>
        <source>Archives (*.csv);;All files (*.*)</source>
        <translation>Архивы (*.csv);;Все файлы (*.*)</translation>
    </message>
    <message>
        <source>Cannot open file for writing: %1</source>
        <translation>Не удалось открыть файл для записи: %1</translation>
    </message>
    <message>
        <source>Save File ...</source>
        <translation>Сохранение файла ...</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Save record %1...</source>
        <translation>Сохранение записи %1...</translation>
    </message>
    <message>
        <source>Archives (*.png);;All files (*.*)</source>
        <translation>Архивы (*.png);;Все файлы (*.*)</translation>
    </message>
</context>
<context>
    <name>PH77Device</name>
    <message>
        <source>Temperature sensor short circuit.</source>
        <translation>Короткое замыкание датчика температуры.</translation>
    </message>
    <message>
        <source>Temperature sensor not connected. </source>
        <translation>Датчик температуры не подключён. </translation>
    </message>
    <message>
        <source>Ei is out of range.</source>
        <translation>Ei вне диапазона.</translation>
    </message>
    <message>
        <source>S is out of range. </source>
        <translation>S вне диапазона. </translation>
    </message>
    <message>
        <source>device configuration (part 1)</source>
        <translation>конфигурация прибора (часть 1)</translation>
    </message>
    <message>
        <source>device configuration (part 2)</source>
        <translation>конфигурация прибора (часть 2)</translation>
    </message>
    <message>
        <source>indication range</source>
        <translation>диапазон индикации</translation>
    </message>
    <message>
        <source>current graduation values</source>
        <translation>текущие значения градуировки</translation>
    </message>
    <message>
        <source>Ei and S ranges</source>
        <translation>диапазоны Ei и S</translation>
    </message>
    <message>
        <source>adjustment parameters</source>
        <translation>параметры подстройки</translation>
    </message>
    <message>
        <source>electrode parameters</source>
        <translation>параметры электрода</translation>
    </message>
    <message>
        <source>PV filter parameters</source>
        <translation>параметры фильтра PV</translation>
    </message>
    <message>
        <source>electrode diagnostic on/off</source>
        <translation>вкл./выкл. диагностики электрода</translation>
    </message>
    <message>
        <source>temperature measurement mode</source>
        <translation>режим измерения температуры</translation>
    </message>
    <message>
        <source>temperature sensor parameters</source>
        <translation>параметры датчика температуры</translation>
    </message>
    <message>
        <source>temperature filter parameters</source>
        <translation>параметры фильтра температуры</translation>
    </message>
    <message>
        <source>graduation point</source>
        <translation>точка градуировки</translation>
    </message>
    <message>
        <source>adjust U</source>
        <translation>подстройка U</translation>
    </message>
    <message>
        <source>adjust Rt</source>
        <translation>подстройка Rt</translation>
    </message>
    <message>
        <source>adjust Rc</source>
        <translation>подстройка Rc</translation>
    </message>
    <message>
        <source>manufacturer settings</source>
        <translation>настройки производителя</translation>
    </message>
</context>
<context>
    <name>PH77Widget</name>
    <message>
        <source>pH meter</source>
        <translation>pH-метр</translation>
    </message>
    <message>
        <source>Current state</source>
        <translation>Текущее состояние</translation>
    </message>
    <message>
        <source>Configuration</source>
        <translation>Конфигурация</translation>
    </message>
    <message>
        <source>pH channel</source>
        <translation>Канал pH</translation>
    </message>
    <message>
        <source>Measurement mode</source>
        <translation>Режим измерения</translation>
    </message>
    <message>
        <source>What the device measures (command 131)</source>
        <translation>Что измеряет прибор (команда 131)</translation>
    </message>
    <message>
        <source>Isopotential point Ei, mV</source>
        <translation>Изопотенциальная точка Ei, мВ</translation>
    </message>
    <message>
        <source>EMF of the electrode at the isopotential point (command 131)</source>
        <translation>ЭДС электрода в изопотенциальной точке (команда 131)</translation>
    </message>
    <message>
        <source>Steepness S, mV/pH</source>
        <translation>Крутизна S, мВ/pH</translation>
    </message>
    <message>
        <source>Steepness of the electrode at 25 °C (command 131)</source>
        <translation>Крутизна электрода при 25 °C (команда 131)</translation>
    </message>
    <message>
        <source>Isopotential point pHi</source>
        <translation>Изопотенциальная точка pHi</translation>
    </message>
    <message>
        <source>pH of the isopotential point; the graduation does not change it</source>
        <translation>pH изопотенциальной точки; градуировка его не меняет</translation>
    </message>
    <message>
        <source>The device measures millivolts; the electrode parameters are not used in this mode.</source>
        <translation>Прибор измеряет милливольты; параметры электрода в этом режиме не используются.</translation>
    </message>
    <message>
        <source>Electrode diagnostics</source>
        <translation>Диагностика электрода</translation>
    </message>
    <message>
        <source>Test of the resistance of the auxiliary electrode (command 133)</source>
        <translation>Контроль сопротивления вспомогательного электрода (команда 133)</translation>
    </message>
    <message>
        <source>Sensor serial number</source>
        <translation>Заводской номер датчика</translation>
    </message>
    <message>
        <source>Serial number of the sensor (command 49)</source>
        <translation>Заводской номер датчика (команда 49)</translation>
    </message>
    <message>
        <source>pH filter</source>
        <translation>Фильтр pH</translation>
    </message>
    <message>
        <source>Averaging time of a small signal, s</source>
        <translation>Время усреднения малого сигнала, с</translation>
    </message>
    <message>
        <source>Command 132</source>
        <translation>Команда 132</translation>
    </message>
    <message>
        <source>Averaging time of a big signal, s</source>
        <translation>Время усреднения большого сигнала, с</translation>
    </message>
    <message>
        <source>Threshold of a big signal</source>
        <translation>Порог большого сигнала</translation>
    </message>
    <message>
        <source>Temperature channel</source>
        <translation>Канал температуры</translation>
    </message>
    <message>
        <source>Temperature compensation</source>
        <translation>Термокомпенсация</translation>
    </message>
    <message>
        <source>Command 135</source>
        <translation>Команда 135</translation>
    </message>
    <message>
        <source>Manually set temperature, °C</source>
        <translation>Температура, заданная вручную, °C</translation>
    </message>
    <message>
        <source>Temperature sensor</source>
        <translation>Датчик температуры</translation>
    </message>
    <message>
        <source>Command 136</source>
        <translation>Команда 136</translation>
    </message>
    <message>
        <source>Resistance at 0 °C, Ohm</source>
        <translation>Сопротивление при 0 °C, Ом</translation>
    </message>
    <message>
        <source>Temperature correction, °C</source>
        <translation>Поправка температуры, °C</translation>
    </message>
    <message>
        <source>Temperature filter</source>
        <translation>Фильтр температуры</translation>
    </message>
    <message>
        <source>Command 137</source>
        <translation>Команда 137</translation>
    </message>
    <message>
        <source>Threshold of a big signal, °C</source>
        <translation>Порог большого сигнала, °C</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Диапазон</translation>
    </message>
    <message>
        <source>Sensor limits</source>
        <translation>Пределы датчика</translation>
    </message>
    <message>
        <source>Lower sensor limit</source>
        <translation>Нижний предел датчика</translation>
    </message>
    <message>
        <source>Upper sensor limit</source>
        <translation>Верхний предел датчика</translation>
    </message>
    <message>
        <source>Minimum span</source>
        <translation>Минимальный диапазон</translation>
    </message>
    <message>
        <source>Conversion range</source>
        <translation>Диапазон преобразования</translation>
    </message>
    <message>
        <source>Lower range value</source>
        <translation>Нижний предел</translation>
    </message>
    <message>
        <source>The value at 4 mA (command 35)</source>
        <translation>Значение при 4 мА (команда 35)</translation>
    </message>
    <message>
        <source>Take from PV</source>
        <translation>Взять из PV</translation>
    </message>
    <message>
        <source>Make the present primary variable the lower range value (command 37)</source>
        <translation>Сделать текущую первичную переменную нижним пределом (команда 37)</translation>
    </message>
    <message>
        <source>Upper range value</source>
        <translation>Верхний предел</translation>
    </message>
    <message>
        <source>The value at 20 mA (command 35)</source>
        <translation>Значение при 20 мА (команда 35)</translation>
    </message>
    <message>
        <source>Make the present primary variable the upper range value (command 36)</source>
        <translation>Сделать текущую первичную переменную верхним пределом (команда 36)</translation>
    </message>
    <message>
        <source>Indication range</source>
        <translation>Диапазон индикации</translation>
    </message>
    <message>
        <source>Lower value</source>
        <translation>Нижнее значение</translation>
    </message>
    <message>
        <source>Command 141</source>
        <translation>Команда 141</translation>
    </message>
    <message>
        <source>Upper value</source>
        <translation>Верхнее значение</translation>
    </message>
    <message>
        <source>Fixed output current</source>
        <translation>Фиксированный выходной ток</translation>
    </message>
    <message>
        <source>Current, mA</source>
        <translation>Ток, мА</translation>
    </message>
    <message>
        <source>The loop current to hold (command 40)</source>
        <translation>Ток петли, который надо удерживать (команда 40)</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Установить</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Сброс</translation>
    </message>
    <message>
        <source>End the fixed current mode</source>
        <translation>Выйти из режима фиксированного тока</translation>
    </message>
    <message>
        <source>Manufacturer settings</source>
        <translation>Заводские настройки</translation>
    </message>
    <message>
        <source>Save as manufacturer settings</source>
        <translation>Сохранить как заводские</translation>
    </message>
    <message>
        <source>Keep the present settings of the device as its manufacturer settings</source>
        <translation>Сохранить текущие настройки прибора как заводские</translation>
    </message>
    <message>
        <source>Restore manufacturer settings</source>
        <translation>Восстановить заводские</translation>
    </message>
    <message>
        <source>Bring the device back to its manufacturer settings</source>
        <translation>Вернуть прибору заводские настройки</translation>
    </message>
    <message>
        <source>Graduation</source>
        <translation>Градуировка</translation>
    </message>
    <message>
        <source>Current graduation</source>
        <translation>Текущая градуировка</translation>
    </message>
    <message>
        <source>pH</source>
        <translation>pH</translation>
    </message>
    <message>
        <source>E, mV</source>
        <translation>E, мВ</translation>
    </message>
    <message>
        <source>T, °C</source>
        <translation>T, °C</translation>
    </message>
    <message>
        <source>Point 1</source>
        <translation>Точка 1</translation>
    </message>
    <message>
        <source>Point 2</source>
        <translation>Точка 2</translation>
    </message>
    <message>
        <source>Graduation type</source>
        <translation>Тип градуировки</translation>
    </message>
    <message>
        <source>With one or two buffer solutions</source>
        <translation>По одному или двум буферным растворам</translation>
    </message>
    <message>
        <source>Start graduation</source>
        <translation>Начать градуировку</translation>
    </message>
    <message>
        <source>Read</source>
        <translation>Прочитать</translation>
    </message>
    <message>
        <source>Read the current graduation values (command 150)</source>
        <translation>Прочитать текущие значения градуировки (команда 150)</translation>
    </message>
    <message>
        <source>Stop graduation</source>
        <translation>Остановить градуировку</translation>
    </message>
    <message>
        <source>Stop the graduation and read the current values</source>
        <translation>Остановить градуировку и прочитать текущие значения</translation>
    </message>
    <message>
        <source>Point 1: put the electrode into the buffer solution and start the measurement. Write the point when the buffer pH turns green.</source>
        <translation>Точка 1: опустите электрод в буферный раствор и начните измерение. Запишите точку, когда pH буфера станет зелёным.</translation>
    </message>
    <message>
        <source>Buffer solution pH</source>
        <translation>pH буферного раствора</translation>
    </message>
    <message>
        <source>The pH of the buffer solution the device recognised; it may be corrected</source>
        <translation>pH буферного раствора, распознанного прибором; его можно исправить</translation>
    </message>
    <message>
        <source>Start measurement</source>
        <translation>Начать измерение</translation>
    </message>
    <message>
        <source>Watch the electrode in the buffer solution (command 33)</source>
        <translation>Следить за электродом в буферном растворе (команда 33)</translation>
    </message>
    <message>
        <source>Electrode EMF</source>
        <translation>ЭДС электрода</translation>
    </message>
    <message>
        <source>Temperature</source>
        <translation>Температура</translation>
    </message>
    <message>
        <source>Write point 1</source>
        <translation>Записать точку 1</translation>
    </message>
    <message>
        <source>Write the graduation point (command 151)</source>
        <translation>Записать точку градуировки (команда 151)</translation>
    </message>
    <message>
        <source>Point 2: put the electrode into the buffer solution and start the measurement. Write the point when the buffer pH turns green.</source>
        <translation>Точка 2: опустите электрод в буферный раствор и начните измерение. Запишите точку, когда pH буфера станет зелёным.</translation>
    </message>
    <message>
        <source>Write point 2</source>
        <translation>Записать точку 2</translation>
    </message>
    <message>
        <source>Metrology</source>
        <translation>Метрология</translation>
    </message>
    <message>
        <source>Choose what to adjust. Each adjustment needs the metrology access code of the device.</source>
        <translation>Выберите, что подстраивать. Для каждой подстройки нужен код метрологического доступа прибора.</translation>
    </message>
    <message>
        <source>Output current 4-20 mA</source>
        <translation>Выходной ток 4-20 мА</translation>
    </message>
    <message>
        <source>Measuring channels U, Rc, Rt</source>
        <translation>Измерительные каналы U, Rc, Rt</translation>
    </message>
    <message>
        <source>Ranges of Ei and S</source>
        <translation>Диапазоны Ei и S</translation>
    </message>
    <message>
        <source>Sensor parameters</source>
        <translation>Параметры датчика</translation>
    </message>
    <message>
        <source>Metrology access code</source>
        <translation>Код метрологического доступа</translation>
    </message>
    <message>
        <source>The code that opens the adjustment of the device (command 190)</source>
        <translation>Код, открывающий подстройку прибора (команда 190)</translation>
    </message>
    <message>
        <source>Open access</source>
        <translation>Открыть доступ</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Set the current, measure it with a reference meter, enter the measured value and adjust.</source>
        <translation>Установите ток, измерьте его образцовым прибором, введите измеренное значение и подстройте.</translation>
    </message>
    <message>
        <source>Set 4 mA</source>
        <translation>Установить 4 мА</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>мА</translation>
    </message>
    <message>
        <source>Adjust 4 mA</source>
        <translation>Подстроить 4 мА</translation>
    </message>
    <message>
        <source>Write the measured current (command 45)</source>
        <translation>Записать измеренный ток (команда 45)</translation>
    </message>
    <message>
        <source>Set 20 mA</source>
        <translation>Установить 20 мА</translation>
    </message>
    <message>
        <source>Adjust 20 mA</source>
        <translation>Подстроить 20 мА</translation>
    </message>
    <message>
        <source>Write the measured current (command 46)</source>
        <translation>Записать измеренный ток (команда 46)</translation>
    </message>
    <message>
        <source>Complete adjustment</source>
        <translation>Завершить подстройку</translation>
    </message>
    <message>
        <source>Release the current, close metrology access and leave the adjustment</source>
        <translation>Освободить ток, закрыть метрологический доступ и выйти из подстройки</translation>
    </message>
    <message>
        <source>Reading</source>
        <translation>Показание</translation>
    </message>
    <message>
        <source>Reference value</source>
        <translation>Образцовое значение</translation>
    </message>
    <message>
        <source>Adjusted at</source>
        <translation>Подстроено при</translation>
    </message>
    <message>
        <source>U, mV</source>
        <translation>U, мВ</translation>
    </message>
    <message>
        <source>Adjust the U channel at point 1 (command 172)</source>
        <translation>Подстроить канал U в точке 1 (команда 172)</translation>
    </message>
    <message>
        <source>Adjust the U channel at point 2 (command 172)</source>
        <translation>Подстроить канал U в точке 2 (команда 172)</translation>
    </message>
    <message>
        <source>Rc, kOhm</source>
        <translation>Rc, кОм</translation>
    </message>
    <message>
        <source>Adjust the Rc channel at point 1 (command 174)</source>
        <translation>Подстроить канал Rc в точке 1 (команда 174)</translation>
    </message>
    <message>
        <source>Adjust the Rc channel at point 2 (command 174)</source>
        <translation>Подстроить канал Rc в точке 2 (команда 174)</translation>
    </message>
    <message>
        <source>Rt, Ohm</source>
        <translation>Rt, Ом</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>Подстроить</translation>
    </message>
    <message>
        <source>Adjust the Rt channel (command 173)</source>
        <translation>Подстроить канал Rt (команда 173)</translation>
    </message>
    <message>
        <source>Watch U, Rc and Rt (command 33)</source>
        <translation>Следить за U, Rc и Rt (команда 33)</translation>
    </message>
    <message>
        <source>Close metrology access and leave the adjustment</source>
        <translation>Закрыть метрологический доступ и выйти из подстройки</translation>
    </message>
    <message>
        <source>Ei from, mV</source>
        <translation>Ei от, мВ</translation>
    </message>
    <message>
        <source>to</source>
        <translation>до</translation>
    </message>
    <message>
        <source>S from, mV/pH</source>
        <translation>S от, мВ/pH</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>Записать</translation>
    </message>
    <message>
        <source>Write the ranges (command 176)</source>
        <translation>Записать диапазоны (команда 176)</translation>
    </message>
    <message>
        <source>Write the sensor parameters (commands 49 and 142)</source>
        <translation>Записать параметры датчика (команды 49 и 142)</translation>
    </message>
    <message>
        <source>Read configuration</source>
        <translation>Читать конфигурацию</translation>
    </message>
    <message>
        <source>Read the electrode, temperature, range, graduation and sensor settings from the device</source>
        <translation>Прочитать из прибора настройки электрода, температуры, диапазона, градуировки и датчика</translation>
    </message>
    <message>
        <source>Write configuration</source>
        <translation>Записать конфигурацию</translation>
    </message>
    <message>
        <source>Write the changed (blue) settings into the device</source>
        <translation>Записать изменённые (синие) настройки в прибор</translation>
    </message>
    <message>
        <source>Stop measurement</source>
        <translation>Остановить измерение</translation>
    </message>
    <message>
        <source>pH-meter</source>
        <translation>pH-метр</translation>
    </message>
    <message>
        <source>pH-meter with VCW</source>
        <translation>pH-метр с ВСЭ</translation>
    </message>
    <message>
        <source>OVP-meter</source>
        <translation>ОВП-метр</translation>
    </message>
    <message>
        <source>EMF-meter</source>
        <translation>мВ-метр</translation>
    </message>
    <message>
        <source>measured by temperature sensor</source>
        <translation>по датчику температуры</translation>
    </message>
    <message>
        <source>manually set temperature</source>
        <translation>температура задана вручную</translation>
    </message>
    <message>
        <source>off</source>
        <translation>выкл</translation>
    </message>
    <message>
        <source>on</source>
        <translation>вкл</translation>
    </message>
    <message>
        <source>P</source>
        <translation>П</translation>
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
        <translation>1-точечная</translation>
    </message>
    <message>
        <source>2-point</source>
        <translation>2-точечная</translation>
    </message>
    <message>
        <source>write protection is enabled</source>
        <translation>включена защита от записи</translation>
    </message>
    <message>
        <source>Read device configuration</source>
        <translation>Чтение конфигурации прибора</translation>
    </message>
    <message>
        <source>It is forbidden to turn on the test of the resistance of the auxiliary electrode with a two-wire connection diagram of the ES, since in this mode the current consumption exceeds 4 mA!</source>
        <translation>Запрещено включать контроль сопротивления вспомогательного электрода при двухпроводной схеме подключения ЭС: в этом режиме ток потребления превышает 4 мА!</translation>
    </message>
    <message>
        <source>Error</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>Undefined</source>
        <translation>Не определён</translation>
    </message>
    <message>
        <source>Err</source>
        <translation>Ошибка</translation>
    </message>
    <message>
        <source>nan</source>
        <translation>nan</translation>
    </message>
    <message>
        <source>Current graduation values</source>
        <translation>Текущие значения градуировки</translation>
    </message>
    <message>
        <source>Adjustment</source>
        <translation>Подстройка</translation>
    </message>
    <message>
        <source>You are in metrology mode and really want to start graduation?</source>
        <translation>Вы в режиме метрологии и действительно хотите начать градуировку?</translation>
    </message>
    <message>
        <source>Write graduation point %1</source>
        <translation>Запись точки градуировки %1</translation>
    </message>
    <message>
        <source>Saved</source>
        <translation>Записано</translation>
    </message>
    <message>
        <source>Reading metrological parameters</source>
        <translation>Чтение метрологических параметров</translation>
    </message>
    <message>
        <source>U adjustment</source>
        <translation>Подстройка U</translation>
    </message>
    <message>
        <source>Rc adjustment</source>
        <translation>Подстройка Rc</translation>
    </message>
    <message>
        <source>Rt adjustment</source>
        <translation>Подстройка Rt</translation>
    </message>
    <message>
        <source>Reading the ranges of Ei and S</source>
        <translation>Чтение диапазонов Ei и S</translation>
    </message>
    <message>
        <source>Ei and S ranges</source>
        <translation>диапазоны Ei и S</translation>
    </message>
    <message>
        <source>Reading sensor parameters</source>
        <translation>Чтение параметров датчика</translation>
    </message>
    <message>
        <source>Sensor parameters saving</source>
        <translation>Запись параметров датчика</translation>
    </message>
</context>
<context>
    <name>PVWidget</name>
    <message>
        <source>Variables</source>
        <translation>Переменные</translation>
    </message>
    <message>
        <source>Dynamic variables</source>
        <translation>Динамические переменные</translation>
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
        <translation>Ток петли</translation>
    </message>
    <message>
        <source>Current, mA</source>
        <translation>Ток, мА</translation>
    </message>
    <message>
        <source>Percent of range</source>
        <translation>% диапазона</translation>
    </message>
    <message>
        <source>Read the dynamic variables and the loop current (commands 3 and 2)</source>
        <translation>Прочитать динамические переменные и ток петли (команды 3 и 2)</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Обновить</translation>
    </message>
    <message>
        <source>Read the additional status (command 48) with each exchange</source>
        <translation>Читать дополнительный статус (команда 48) при каждом обмене</translation>
    </message>
    <message>
        <source>Additional status</source>
        <translation>Доп. статус</translation>
    </message>
    <message>
        <source>Reset the configuration changed flag of the device (command 38)</source>
        <translation>Сбросить флаг изменения конфигурации устройства (команда 38)</translation>
    </message>
    <message>
        <source>Reset flag &lt;Config changed&gt;</source>
        <translation>Сбросить флаг &lt;Конфиг. изменена&gt;</translation>
    </message>
    <message>
        <source>not used</source>
        <translation>не используется</translation>
    </message>
    <message>
        <source>Reading variables</source>
        <translation>Чтение переменных</translation>
    </message>
    <message>
        <source>Reading the primary variable</source>
        <translation>Чтение первичной переменной</translation>
    </message>
    <message>
        <source>Primary Variable value read error! Try again please.</source>
        <translation>Ошибка чтения первичной переменной! Повторите попытку.</translation>
    </message>
    <message>
        <source>PV measurement error=%1! Try again please.</source>
        <translation>Ошибка измерения PV=%1! Повторите попытку.</translation>
    </message>
    <message>
        <source>current loop disabled</source>
        <translation>токовая петля отключена</translation>
    </message>
</context>
<context>
    <name>Plotter</name>
    <message>
        <source>Next zoom</source>
        <translation>Следующий масштаб</translation>
    </message>
    <message>
        <source>Previous zoom</source>
        <translation>Предыдущий масштаб</translation>
    </message>
    <message>
        <source>Move plot up</source>
        <translation>Сдвинуть график вверх</translation>
    </message>
    <message>
        <source>Move plot down</source>
        <translation>Сдвинуть график вниз</translation>
    </message>
    <message>
        <source>Move plot left</source>
        <translation>Сдвинуть график влево</translation>
    </message>
    <message>
        <source>Move plot right</source>
        <translation>Сдвинуть график вправо</translation>
    </message>
    <message>
        <source>Curves draw mode - line/point</source>
        <translation>Вид кривых - линии/точки</translation>
    </message>
</context>
<context>
    <name>Port</name>
    <message>
        <source>not such device &apos;%1&apos;</source>
        <translation>нет такого прибора &apos;%1&apos;</translation>
    </message>
    <message>
        <source>Can&apos;t open %1!
 error code: %2 - %3</source>
        <translation>Не удалось открыть %1!
 код ошибки: %2 - %3</translation>
    </message>
    <message>
        <source>port &apos;%1&apos; is not opened</source>
        <translation>порт &apos;%1&apos; не открыт</translation>
    </message>
    <message>
        <source>Invalid chars in device tag!</source>
        <translation>Недопустимые символы в теге прибора!</translation>
    </message>
    <message>
        <source>*** pack/unpack error!</source>
        <translation>*** ошибка упаковки/распаковки!</translation>
    </message>
</context>
<context>
    <name>PortThread</name>
    <message>
        <source>Write error %1, error code: %2 - %3</source>
        <translation>Ошибка записи %1, код ошибки: %2 - %3</translation>
    </message>
    <message>
        <source>Request timeout (%1ms)</source>
        <translation>Тайм-аут запроса (%1ms)</translation>
    </message>
    <message>
        <source>Response timeout (%1ms)</source>
        <translation>Тайм-аут ответа (%1ms)</translation>
    </message>
    <message>
        <source>No permission to open %1. Serial ports are open to the members of the group &quot;dialout&quot;: add your user to it (sudo adduser $USER dialout), then log out and in again.</source>
        <translation>Нет прав на открытие %1. Последовательные порты открыты только участникам группы &quot;dialout&quot;: добавьте в неё своего пользователя (sudo adduser $USER dialout), затем выйдите из системы и войдите снова.</translation>
    </message>
</context>
<context>
    <name>QP1Device</name>
    <message>
        <source>decimal point position</source>
        <translation>положение десятичной точки</translation>
    </message>
    <message>
        <source>device configuration</source>
        <translation>конфигурация прибора</translation>
    </message>
    <message>
        <source>temperature correction params</source>
        <translation>параметры температурной коррекции</translation>
    </message>
    <message>
        <source>pressure for line point</source>
        <translation>давление для точки линеаризации</translation>
    </message>
    <message>
        <source>average_count</source>
        <translation>количество усреднений</translation>
    </message>
    <message>
        <source>calibration unit code</source>
        <translation>код единиц калибровки</translation>
    </message>
    <message>
        <source>line points count</source>
        <translation>количество точек линеаризации</translation>
    </message>
    <message>
        <source>line point value</source>
        <translation>значение точки линеаризации</translation>
    </message>
    <message>
        <source>temper corretion mode</source>
        <translation>режим температурной коррекции</translation>
    </message>
    <message>
        <source>temper corretion</source>
        <translation>температурная коррекция</translation>
    </message>
    <message>
        <source>adjust gain</source>
        <translation>подстройка коэффициента усиления</translation>
    </message>
    <message>
        <source>free ragne</source>
        <translation>свободный диапазон</translation>
    </message>
    <message>
        <source>indication range</source>
        <translation>диапазон индикации</translation>
    </message>
    <message>
        <source>get line point value</source>
        <translation>получение значения точки линеаризации</translation>
    </message>
    <message>
        <source>manufacturer settings</source>
        <translation>настройки производителя</translation>
    </message>
</context>
<context>
    <name>QP1Widget</name>
    <message>
        <source>Pressure converter</source>
        <translation>Преобразователь давления</translation>
    </message>
    <message>
        <source>Current state</source>
        <translation>Текущее состояние</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Вход</translation>
    </message>
    <message>
        <source>Units</source>
        <translation>Единицы</translation>
    </message>
    <message>
        <source>The units of the pressure (command 44)</source>
        <translation>Единицы давления (команда 44)</translation>
    </message>
    <message>
        <source>Sensor serial number</source>
        <translation>Заводской номер датчика</translation>
    </message>
    <message>
        <source>Serial number of the sensor (command 49)</source>
        <translation>Заводской номер датчика (команда 49)</translation>
    </message>
    <message>
        <source>Decimal point</source>
        <translation>Десятичная точка</translation>
    </message>
    <message>
        <source>Digits after the point on the indicator (command 133)</source>
        <translation>Знаков после точки на индикаторе (команда 133)</translation>
    </message>
    <message>
        <source>Averaging count</source>
        <translation>Число усреднений</translation>
    </message>
    <message>
        <source>Measurements averaged into one value (command 134)</source>
        <translation>Сколько измерений усредняются в одно значение (команда 134)</translation>
    </message>
    <message>
        <source>Lower indication</source>
        <translation>Нижнее значение индикации</translation>
    </message>
    <message>
        <source>The lower value of the indicator (command 146)</source>
        <translation>Нижнее значение индикатора (команда 146)</translation>
    </message>
    <message>
        <source>Upper indication</source>
        <translation>Верхнее значение индикации</translation>
    </message>
    <message>
        <source>The upper value of the indicator (command 146)</source>
        <translation>Верхнее значение индикатора (команда 146)</translation>
    </message>
    <message>
        <source>Input at the lower indication</source>
        <translation>Вход при нижней индикации</translation>
    </message>
    <message>
        <source>The input value shown as the lower indication (command 145)</source>
        <translation>Входное значение, показываемое как нижняя индикация (команда 145)</translation>
    </message>
    <message>
        <source>Input at the upper indication</source>
        <translation>Вход при верхней индикации</translation>
    </message>
    <message>
        <source>The input value shown as the upper indication (command 145)</source>
        <translation>Входное значение, показываемое как верхняя индикация (команда 145)</translation>
    </message>
    <message>
        <source>The indicator shows the pressure in the units chosen.</source>
        <translation>Индикатор показывает давление в выбранных единицах.</translation>
    </message>
    <message>
        <source>Zero and gain</source>
        <translation>Ноль и усиление</translation>
    </message>
    <message>
        <source>Apply zero pressure and correct the zero; apply the upper pressure and correct the gain.</source>
        <translation>Подайте нулевое давление и скорректируйте ноль; подайте верхнее давление и скорректируйте усиление.</translation>
    </message>
    <message>
        <source>Correct zero</source>
        <translation>Коррекция нуля</translation>
    </message>
    <message>
        <source>Make the present pressure the zero (command 43)</source>
        <translation>Сделать текущее давление нулём (команда 43)</translation>
    </message>
    <message>
        <source>Correct gain</source>
        <translation>Коррекция усиления</translation>
    </message>
    <message>
        <source>Make the present pressure the upper limit of measurement (command 142)</source>
        <translation>Сделать текущее давление верхним пределом измерения (команда 142)</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Диапазон</translation>
    </message>
    <message>
        <source>Conversion range</source>
        <translation>Диапазон преобразования</translation>
    </message>
    <message>
        <source>Lower range value</source>
        <translation>Нижний предел</translation>
    </message>
    <message>
        <source>The value at 4 mA (command 35)</source>
        <translation>Значение при 4 мА (команда 35)</translation>
    </message>
    <message>
        <source>Take from PV</source>
        <translation>Взять из PV</translation>
    </message>
    <message>
        <source>Make the present primary variable the lower range value (command 37)</source>
        <translation>Сделать текущую первичную переменную нижним пределом (команда 37)</translation>
    </message>
    <message>
        <source>Upper range value</source>
        <translation>Верхний предел</translation>
    </message>
    <message>
        <source>The value at 20 mA (command 35)</source>
        <translation>Значение при 20 мА (команда 35)</translation>
    </message>
    <message>
        <source>Make the present primary variable the upper range value (command 36)</source>
        <translation>Сделать текущую первичную переменную верхним пределом (команда 36)</translation>
    </message>
    <message>
        <source>Fixed output current</source>
        <translation>Фиксированный выходной ток</translation>
    </message>
    <message>
        <source>Current, mA</source>
        <translation>Ток, мА</translation>
    </message>
    <message>
        <source>The loop current to hold (command 40)</source>
        <translation>Ток петли, который надо удерживать (команда 40)</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Установить</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Сброс</translation>
    </message>
    <message>
        <source>End the fixed current mode</source>
        <translation>Выйти из режима фиксированного тока</translation>
    </message>
    <message>
        <source>Manufacturer settings</source>
        <translation>Заводские настройки</translation>
    </message>
    <message>
        <source>Save as manufacturer settings</source>
        <translation>Сохранить как заводские</translation>
    </message>
    <message>
        <source>Keep the present settings of the device as its manufacturer settings</source>
        <translation>Сохранить текущие настройки прибора как заводские</translation>
    </message>
    <message>
        <source>Restore manufacturer settings</source>
        <translation>Восстановить заводские</translation>
    </message>
    <message>
        <source>Bring the device back to its manufacturer settings</source>
        <translation>Вернуть прибору заводские настройки</translation>
    </message>
    <message>
        <source>Adjustment</source>
        <translation>Подстройка</translation>
    </message>
    <message>
        <source>Choose what to adjust. Each adjustment needs the metrology access code of the device.</source>
        <translation>Выберите, что подстраивать. Для каждой подстройки нужен код метрологического доступа прибора.</translation>
    </message>
    <message>
        <source>Output current 4-20 mA</source>
        <translation>Выходной ток 4-20 мА</translation>
    </message>
    <message>
        <source>Linearization table</source>
        <translation>Таблица линеаризации</translation>
    </message>
    <message>
        <source>Temperature correction</source>
        <translation>Температурная коррекция</translation>
    </message>
    <message>
        <source>Sensor parameters</source>
        <translation>Параметры датчика</translation>
    </message>
    <message>
        <source>Metrology access code</source>
        <translation>Код метрологического доступа</translation>
    </message>
    <message>
        <source>The code that opens the adjustment of the device (command 190)</source>
        <translation>Код, открывающий подстройку прибора (команда 190)</translation>
    </message>
    <message>
        <source>Open access</source>
        <translation>Открыть доступ</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Set the current, measure it with a reference meter, enter the measured value and adjust.</source>
        <translation>Установите ток, измерьте его образцовым прибором, введите измеренное значение и подстройте.</translation>
    </message>
    <message>
        <source>Set 4 mA</source>
        <translation>Установить 4 мА</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>мА</translation>
    </message>
    <message>
        <source>Adjust 4 mA</source>
        <translation>Подстроить 4 мА</translation>
    </message>
    <message>
        <source>Write the measured current (command 45)</source>
        <translation>Записать измеренный ток (команда 45)</translation>
    </message>
    <message>
        <source>Set 20 mA</source>
        <translation>Установить 20 мА</translation>
    </message>
    <message>
        <source>Adjust 20 mA</source>
        <translation>Подстроить 20 мА</translation>
    </message>
    <message>
        <source>Write the measured current (command 46)</source>
        <translation>Записать измеренный ток (команда 46)</translation>
    </message>
    <message>
        <source>Complete adjustment</source>
        <translation>Завершить подстройку</translation>
    </message>
    <message>
        <source>Release the current, close metrology access and leave the adjustment</source>
        <translation>Освободить ток, закрыть метрологический доступ и выйти из подстройки</translation>
    </message>
    <message>
        <source>Sensor range</source>
        <translation>Диапазон датчика</translation>
    </message>
    <message>
        <source>Calibration units</source>
        <translation>Единицы калибровки</translation>
    </message>
    <message>
        <source>Write</source>
        <translation>Записать</translation>
    </message>
    <message>
        <source>Write the units of the table (command 136)</source>
        <translation>Записать единицы таблицы (команда 136)</translation>
    </message>
    <message>
        <source>Points</source>
        <translation>Точки</translation>
    </message>
    <message>
        <source>Write the number of points (command 137)</source>
        <translation>Записать число точек (команда 137)</translation>
    </message>
    <message>
        <source>Reload</source>
        <translation>Перечитать</translation>
    </message>
    <message>
        <source>Read the table from the device again (command 148)</source>
        <translation>Перечитать таблицу из прибора (команда 148)</translation>
    </message>
    <message>
        <source>Edit points</source>
        <translation>Правка точек</translation>
    </message>
    <message>
        <source>Close metrology access and leave the adjustment</source>
        <translation>Закрыть метрологический доступ и выйти из подстройки</translation>
    </message>
    <message>
        <source>Point</source>
        <translation>Точка</translation>
    </message>
    <message>
        <source>Read pressure</source>
        <translation>Прочитать давление</translation>
    </message>
    <message>
        <source>What the device measures now (command 149)</source>
        <translation>Что прибор измеряет сейчас (команда 149)</translation>
    </message>
    <message>
        <source>Write point</source>
        <translation>Записать точку</translation>
    </message>
    <message>
        <source>Write the reference value of the point (command 138)</source>
        <translation>Записать образцовое значение точки (команда 138)</translation>
    </message>
    <message>
        <source>Back to the table</source>
        <translation>Назад к таблице</translation>
    </message>
    <message>
        <source>Correction mode</source>
        <translation>Режим коррекции</translation>
    </message>
    <message>
        <source>Write the correction mode (command 140)</source>
        <translation>Записать режим коррекции (команда 140)</translation>
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
        <translation>Коррекция при T1 и T2</translation>
    </message>
    <message>
        <source>Put the device into the thermostat and set the temperature T1.</source>
        <translation>Поместите прибор в термостат и установите температуру T1.</translation>
    </message>
    <message>
        <source>Temperature, °C</source>
        <translation>Температура, °C</translation>
    </message>
    <message>
        <source>Apply the pressure P1 and save the point.</source>
        <translation>Подайте давление P1 и сохраните точку.</translation>
    </message>
    <message>
        <source>Apply the pressure P2 and save the point.</source>
        <translation>Подайте давление P2 и сохраните точку.</translation>
    </message>
    <message>
        <source>Set the temperature T2 in the thermostat.</source>
        <translation>Установите в термостате температуру T2.</translation>
    </message>
    <message>
        <source>&lt; Back</source>
        <translation>&lt; Назад</translation>
    </message>
    <message>
        <source>Next &gt;</source>
        <translation>Далее &gt;</translation>
    </message>
    <message>
        <source>Save point</source>
        <translation>Сохранить точку</translation>
    </message>
    <message>
        <source>Write the point (command 141)</source>
        <translation>Записать точку (команда 141)</translation>
    </message>
    <message>
        <source>Lower sensor limit</source>
        <translation>Нижний предел датчика</translation>
    </message>
    <message>
        <source>Upper sensor limit</source>
        <translation>Верхний предел датчика</translation>
    </message>
    <message>
        <source>Minimum span</source>
        <translation>Минимальный диапазон</translation>
    </message>
    <message>
        <source>Write the sensor parameters (commands 49 and 147)</source>
        <translation>Записать параметры датчика (команды 49 и 147)</translation>
    </message>
    <message>
        <source>Read configuration</source>
        <translation>Читать конфигурацию</translation>
    </message>
    <message>
        <source>Read the input and the range from the device</source>
        <translation>Прочитать из прибора вход и диапазон</translation>
    </message>
    <message>
        <source>Write configuration</source>
        <translation>Записать конфигурацию</translation>
    </message>
    <message>
        <source>Write the changed (blue) settings into the device</source>
        <translation>Записать изменённые (синие) настройки в прибор</translation>
    </message>
    <message>
        <source>Free convertion</source>
        <translation>Свободное преобразование</translation>
    </message>
    <message>
        <source>Pa  (Pa)</source>
        <translation>Па  (Pa)</translation>
    </message>
    <message>
        <source>kPa (kPa)</source>
        <translation>кПа (kPa)</translation>
    </message>
    <message>
        <source>MPa (MPa)</source>
        <translation>МПа (MPa)</translation>
    </message>
    <message>
        <source>kgf/sm2 (kgf/sm2)</source>
        <translation>кгс/см2 (kgf/sm2)</translation>
    </message>
    <message>
        <source>mbar (mbar)</source>
        <translation>мбар (mbar)</translation>
    </message>
    <message>
        <source>bar (bar)</source>
        <translation>бар (bar)</translation>
    </message>
    <message>
        <source>mmWS (mmWS)</source>
        <translation>мм вод. ст. (mmWS)</translation>
    </message>
    <message>
        <source>inchWS (inchWS)</source>
        <translation>дюйм вод. ст. (inchWS)</translation>
    </message>
    <message>
        <source>mmHg (mmHg)</source>
        <translation>мм рт. ст. (mmHg)</translation>
    </message>
    <message>
        <source>inchHg (inchHg)</source>
        <translation>дюйм рт. ст. (inchHg)</translation>
    </message>
    <message>
        <source>psi (lb/inch2)</source>
        <translation>psi (lb/inch2)</translation>
    </message>
    <message>
        <source>Value</source>
        <translation>Значение</translation>
    </message>
    <message>
        <source>correction is disabled</source>
        <translation>коррекция отключена</translation>
    </message>
    <message>
        <source>zero offset correction</source>
        <translation>коррекция смещения нуля</translation>
    </message>
    <message>
        <source>zero offset and gain correction</source>
        <translation>коррекция смещения нуля и усиления</translation>
    </message>
    <message>
        <source>write protection is enabled</source>
        <translation>включена защита от записи</translation>
    </message>
    <message>
        <source>Read device configuration</source>
        <translation>Чтение конфигурации прибора</translation>
    </message>
    <message>
        <source>Zero adjustment</source>
        <translation>Подстройка нуля</translation>
    </message>
    <message>
        <source>Do you want to set current
Primary Variable value=%1 %2
as Zero Value ?</source>
        <translation>Сделать текущее
значение первичной переменной=%1 %2
нулём?</translation>
    </message>
    <message>
        <source>Adjusting zero</source>
        <translation>Подстройка нуля</translation>
    </message>
    <message>
        <source>Gain correction</source>
        <translation>Коррекция усиления</translation>
    </message>
    <message>
        <source>Do you want to set current
Primary Variable value=%1 %2
as upper limit of measurement ?</source>
        <translation>Сделать текущее
значение первичной переменной=%1 %2
верхним пределом измерения?</translation>
    </message>
    <message>
        <source>Real value of input signal (%1):</source>
        <translation>Действительное значение входного сигнала (%1):</translation>
    </message>
    <message>
        <source>Adjusting the gain</source>
        <translation>Подстройка усиления</translation>
    </message>
    <message>
        <source>Linearization table loading</source>
        <translation>Загрузка таблицы линеаризации</translation>
    </message>
    <message>
        <source>Line points count saving</source>
        <translation>Запись числа точек</translation>
    </message>
    <message>
        <source>Calibration units saving</source>
        <translation>Запись единиц калибровки</translation>
    </message>
    <message>
        <source>Pressure reading</source>
        <translation>Чтение давления</translation>
    </message>
    <message>
        <source>Linearization point %1 value saving</source>
        <translation>Запись значения точки линеаризации %1</translation>
    </message>
    <message>
        <source>Temperature correction mode reading</source>
        <translation>Чтение режима температурной коррекции</translation>
    </message>
    <message>
        <source>Temperature correction mode saving</source>
        <translation>Запись режима температурной коррекции</translation>
    </message>
    <message>
        <source>in thermostat should be T1=%1 </source>
        <translation>в термостате должно быть T1=%1 </translation>
    </message>
    <message>
        <source>in the thermostat should be T2=%1 </source>
        <translation>в термостате должно быть T2=%1 </translation>
    </message>
    <message>
        <source>P%1T%2 correction saving</source>
        <translation>Запись коррекции P%1T%2</translation>
    </message>
    <message>
        <source>Operation completed successfully!

Writting temperature is different from previous value at this point.
Prev = %1 °C - Current = %2 °C</source>
        <translation>Операция выполнена успешно!

Записываемая температура отличается от прежней в этой точке.
Прежняя = %1 °C - Текущая = %2 °C</translation>
    </message>
    <message>
        <source>Sensor parameters saving</source>
        <translation>Запись параметров датчика</translation>
    </message>
</context>
<context>
    <name>RTUPortEditor</name>
    <message>
        <source>Serial device:</source>
        <translation>Последовательный порт:</translation>
    </message>
    <message>
        <source>Refresh</source>
        <translation>Обновить</translation>
    </message>
    <message>
        <source>Check</source>
        <translation>Проверить</translation>
    </message>
    <message>
        <source>Baud rate:</source>
        <translation>Скорость обмена:</translation>
    </message>
    <message>
        <source>Data bits:</source>
        <translation>Биты данных:</translation>
    </message>
    <message>
        <source>Parity:</source>
        <translation>Чётность:</translation>
    </message>
    <message>
        <source>Stop bits:</source>
        <translation>Стоповые биты:</translation>
    </message>
    <message>
        <source>Request timeout:</source>
        <translation>Тайм-аут запроса:</translation>
    </message>
    <message>
        <source>ms</source>
        <translation>мс</translation>
    </message>
    <message>
        <source>Response timeout:</source>
        <translation>Тайм-аут ответа:</translation>
    </message>
    <message>
        <source>Byte timeout:</source>
        <translation>Межбайтовый тайм-аут:</translation>
    </message>
    <message>
        <source>Initial number of preambles:</source>
        <translation>Начальное число преамбул:</translation>
    </message>
    <message>
        <source>Closing the port after
the transaction</source>
        <translation>Закрывать порт после
транзакции</translation>
    </message>
    <message>
        <source>Find start of message</source>
        <translation>Искать начало сообщения</translation>
    </message>
    <message>
        <source>odd</source>
        <translation>нечётная</translation>
    </message>
    <message>
        <source>Port configuration</source>
        <translation>Конфигурация порта</translation>
    </message>
    <message>
        <source>Port %1 already exists!</source>
        <translation>Порт %1 уже существует!</translation>
    </message>
    <message>
        <source>&lt;p style=&quot;color: red;&quot;&gt;Failure: %1.&lt;/p&gt;</source>
        <translation>&lt;p style=&quot;color: red;&quot;&gt;Сбой: %1.&lt;/p&gt;</translation>
    </message>
    <message>
        <source>&lt;p style=&quot;color: green;&quot;&gt;Success.&lt;/p&gt;</source>
        <translation>&lt;p style=&quot;color: green;&quot;&gt;Успешно.&lt;/p&gt;</translation>
    </message>
</context>
<context>
    <name>ReadingsModel</name>
    <message>
        <source>Time</source>
        <translation>Время</translation>
    </message>
    <message>
        <source>%1 [%2]</source>
        <translation>%1 [%2]</translation>
    </message>
    <message>
        <source>Current</source>
        <translation>Ток</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Статус</translation>
    </message>
</context>
<context>
    <name>ServerItem</name>
    <message>
        <source>Ports &amp; Devices</source>
        <translation>Порты и приборы</translation>
    </message>
    <message>
        <source>Port error</source>
        <translation>Ошибка порта</translation>
    </message>
    <message>
        <source>Port error code</source>
        <translation>Код ошибки порта</translation>
    </message>
    <message>
        <source>Config error(invalid access type)</source>
        <translation>Ошибка конфигурации (неверный тип доступа)</translation>
    </message>
    <message>
        <source>Port/Link error</source>
        <translation>Ошибка порта/линии связи</translation>
    </message>
    <message>
        <source>Timeout error</source>
        <translation>Ошибка тайм-аута</translation>
    </message>
    <message>
        <source>No error</source>
        <translation>Нет ошибок</translation>
    </message>
</context>
<context>
    <name>SettingsDialog</name>
    <message>
        <source>Settings</source>
        <translation>Настройки</translation>
    </message>
    <message>
        <source>Log flags</source>
        <translation>Флаги журнала</translation>
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
        <translation>Шрифт</translation>
    </message>
    <message>
        <source>Choose...</source>
        <translation>Выбрать...</translation>
    </message>
    <message>
        <source>HART master</source>
        <translation>Мастер HART</translation>
    </message>
    <message>
        <source>Primary Master</source>
        <translation>Первичный мастер</translation>
    </message>
    <message>
        <source>Secondary Master</source>
        <translation>Вторичный мастер</translation>
    </message>
    <message>
        <source>add comments in tree</source>
        <translation>добавлять комментарии в дерево</translation>
    </message>
    <message>
        <source>load css styles</source>
        <translation>загружать стили css</translation>
    </message>
    <message>
        <source>%1 %2pt %3 %4</source>
        <translation>%1 %2pt %3 %4</translation>
    </message>
    <message>
        <source>bold</source>
        <translation>жирный</translation>
    </message>
    <message>
        <source>italic</source>
        <translation>курсив</translation>
    </message>
    <message>
        <source>Settings changes</source>
        <translation>Изменение настроек</translation>
    </message>
    <message>
        <source>Changes w&apos;ll take effect after the program is restarted.</source>
        <translation>Изменения вступят в силу после перезапуска программы.</translation>
    </message>
</context>
<context>
    <name>StatusWidget</name>
    <message>
        <source>Form</source>
        <translation>Форма</translation>
    </message>
    <message>
        <source>Status</source>
        <translation>Статус</translation>
    </message>
    <message>
        <source>completed successfully</source>
        <translation>выполнено успешно</translation>
    </message>
    <message>
        <source>completed with errors</source>
        <translation>выполнено с ошибками</translation>
    </message>
</context>
<context>
    <name>TCV2Device</name>
    <message>
        <source>device configuration</source>
        <translation>конфигурация прибора</translation>
    </message>
    <message>
        <source>decimal point position</source>
        <translation>положение десятичной точки</translation>
    </message>
    <message>
        <source>input signal type &amp; sensor</source>
        <translation>тип входного сигнала и датчик</translation>
    </message>
    <message>
        <source>connection schema</source>
        <translation>схема подключения</translation>
    </message>
    <message>
        <source>resistance TS at 0</source>
        <translation>сопротивление ТС при 0</translation>
    </message>
    <message>
        <source>resistance of connecting wires</source>
        <translation>сопротивление соединительных проводов</translation>
    </message>
    <message>
        <source>free ends compensation</source>
        <translation>компенсация свободных концов</translation>
    </message>
    <message>
        <source>average_count</source>
        <translation>количество усреднений</translation>
    </message>
    <message>
        <source>first correction point</source>
        <translation>первая точка коррекции</translation>
    </message>
    <message>
        <source>second correction point</source>
        <translation>вторая точка коррекции</translation>
    </message>
    <message>
        <source>input signal type</source>
        <translation>тип входного сигнала</translation>
    </message>
    <message>
        <source>sensor type</source>
        <translation>тип датчика</translation>
    </message>
    <message>
        <source>adjust voltage</source>
        <translation>подстройка напряжения</translation>
    </message>
    <message>
        <source>adjust resistance</source>
        <translation>подстройка сопротивления</translation>
    </message>
    <message>
        <source>adjust temperature</source>
        <translation>подстройка температуры</translation>
    </message>
    <message>
        <source>adjust parameter code</source>
        <translation>код параметра подстройки</translation>
    </message>
    <message>
        <source>manufacturer settings</source>
        <translation>настройки производителя</translation>
    </message>
</context>
<context>
    <name>TCV2Widget</name>
    <message>
        <source>Temperature converter</source>
        <translation>Преобразователь температуры</translation>
    </message>
    <message>
        <source>Current state</source>
        <translation>Текущее состояние</translation>
    </message>
    <message>
        <source>Input</source>
        <translation>Вход</translation>
    </message>
    <message>
        <source>Input signal</source>
        <translation>Входной сигнал</translation>
    </message>
    <message>
        <source>Input signal type</source>
        <translation>Тип входного сигнала</translation>
    </message>
    <message>
        <source>What the converter measures (command 151)</source>
        <translation>Что измеряет преобразователь (команда 151)</translation>
    </message>
    <message>
        <source>Sensor type</source>
        <translation>Тип датчика</translation>
    </message>
    <message>
        <source>Sensor type (command 152)</source>
        <translation>Тип датчика (команда 152)</translation>
    </message>
    <message>
        <source>Sensor serial number</source>
        <translation>Заводской номер датчика</translation>
    </message>
    <message>
        <source>Serial number of the sensor (command 49)</source>
        <translation>Заводской номер датчика (команда 49)</translation>
    </message>
    <message>
        <source>Decimal point</source>
        <translation>Десятичная точка</translation>
    </message>
    <message>
        <source>Digits after the point on the indicator (command 133)</source>
        <translation>Знаков после точки на индикаторе (команда 133)</translation>
    </message>
    <message>
        <source>Averaging count</source>
        <translation>Число усреднений</translation>
    </message>
    <message>
        <source>Measurements averaged into one value (command 134)</source>
        <translation>Сколько измерений усредняются в одно значение (команда 134)</translation>
    </message>
    <message>
        <source>Connection schema</source>
        <translation>Схема подключения</translation>
    </message>
    <message>
        <source>Resistance at 0 °C, Ohm</source>
        <translation>Сопротивление при 0 °C, Ом</translation>
    </message>
    <message>
        <source>Nominal resistance of the thermometer at 0 °C (command 156)</source>
        <translation>Номинальное сопротивление термометра при 0 °C (команда 156)</translation>
    </message>
    <message>
        <source>Resistance of the connecting wires, Ohm</source>
        <translation>Сопротивление соединительных проводов, Ом</translation>
    </message>
    <message>
        <source>Resistance of the wires to the thermometer (command 158)</source>
        <translation>Сопротивление проводов до термометра (команда 158)</translation>
    </message>
    <message>
        <source>Compensation of the free ends</source>
        <translation>Компенсация свободных концов</translation>
    </message>
    <message>
        <source>The sensor of the free ends of the thermocouple needs no further settings.</source>
        <translation>Датчику свободных концов термопары других настроек не нужно.</translation>
    </message>
    <message>
        <source>2-point correction</source>
        <translation>Коррекция по 2 точкам</translation>
    </message>
    <message>
        <source>Correction point 1, °C</source>
        <translation>Точка коррекции 1, °C</translation>
    </message>
    <message>
        <source>Correction point 2, °C</source>
        <translation>Точка коррекции 2, °C</translation>
    </message>
    <message>
        <source>Begin correction</source>
        <translation>Начать коррекцию</translation>
    </message>
    <message>
        <source>Correct the resistance thermometer at two temperatures</source>
        <translation>Скорректировать термометр сопротивления по двум температурам</translation>
    </message>
    <message>
        <source>Put the thermometer at the temperature of point 1 and wait until the primary variable is steady. Then enter the temperature of the point and write it. Point 2 follows the same way.</source>
        <translation>Поместите термометр в температуру точки 1 и дождитесь, пока первичная переменная установится. Затем введите температуру точки и запишите её. Точка 2 записывается так же.</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Старт</translation>
    </message>
    <message>
        <source>Temperature of point 1, °C</source>
        <translation>Температура точки 1, °C</translation>
    </message>
    <message>
        <source>Write point 1</source>
        <translation>Записать точку 1</translation>
    </message>
    <message>
        <source>Read the primary variable and write the point (command 143)</source>
        <translation>Прочитать первичную переменную и записать точку (команда 143)</translation>
    </message>
    <message>
        <source>Temperature of point 2, °C</source>
        <translation>Температура точки 2, °C</translation>
    </message>
    <message>
        <source>Write point 2</source>
        <translation>Записать точку 2</translation>
    </message>
    <message>
        <source>Read the primary variable and write the point (command 144)</source>
        <translation>Прочитать первичную переменную и записать точку (команда 144)</translation>
    </message>
    <message>
        <source>Cancel correction</source>
        <translation>Отменить коррекцию</translation>
    </message>
    <message>
        <source>Range</source>
        <translation>Диапазон</translation>
    </message>
    <message>
        <source>Sensor limits</source>
        <translation>Пределы датчика</translation>
    </message>
    <message>
        <source>Lower sensor limit</source>
        <translation>Нижний предел датчика</translation>
    </message>
    <message>
        <source>Upper sensor limit</source>
        <translation>Верхний предел датчика</translation>
    </message>
    <message>
        <source>Minimum span</source>
        <translation>Минимальный диапазон</translation>
    </message>
    <message>
        <source>Conversion range</source>
        <translation>Диапазон преобразования</translation>
    </message>
    <message>
        <source>Lower range value</source>
        <translation>Нижний предел</translation>
    </message>
    <message>
        <source>The value at 4 mA (command 35)</source>
        <translation>Значение при 4 мА (команда 35)</translation>
    </message>
    <message>
        <source>Take from PV</source>
        <translation>Взять из PV</translation>
    </message>
    <message>
        <source>Make the present primary variable the lower range value (command 37)</source>
        <translation>Сделать текущую первичную переменную нижним пределом (команда 37)</translation>
    </message>
    <message>
        <source>Upper range value</source>
        <translation>Верхний предел</translation>
    </message>
    <message>
        <source>The value at 20 mA (command 35)</source>
        <translation>Значение при 20 мА (команда 35)</translation>
    </message>
    <message>
        <source>Make the present primary variable the upper range value (command 36)</source>
        <translation>Сделать текущую первичную переменную верхним пределом (команда 36)</translation>
    </message>
    <message>
        <source>Fixed output current</source>
        <translation>Фиксированный выходной ток</translation>
    </message>
    <message>
        <source>Current, mA</source>
        <translation>Ток, мА</translation>
    </message>
    <message>
        <source>The loop current to hold (command 40)</source>
        <translation>Ток петли, который надо удерживать (команда 40)</translation>
    </message>
    <message>
        <source>Set</source>
        <translation>Установить</translation>
    </message>
    <message>
        <source>Reset</source>
        <translation>Сброс</translation>
    </message>
    <message>
        <source>End the fixed current mode</source>
        <translation>Выйти из режима фиксированного тока</translation>
    </message>
    <message>
        <source>Manufacturer settings</source>
        <translation>Заводские настройки</translation>
    </message>
    <message>
        <source>Save as manufacturer settings</source>
        <translation>Сохранить как заводские</translation>
    </message>
    <message>
        <source>Keep the present settings of the device as its manufacturer settings</source>
        <translation>Сохранить текущие настройки прибора как заводские</translation>
    </message>
    <message>
        <source>Restore manufacturer settings</source>
        <translation>Восстановить заводские</translation>
    </message>
    <message>
        <source>Bring the device back to its manufacturer settings</source>
        <translation>Вернуть прибору заводские настройки</translation>
    </message>
    <message>
        <source>Adjustment</source>
        <translation>Подстройка</translation>
    </message>
    <message>
        <source>Choose what to adjust. Each adjustment needs the metrology access code of the device.</source>
        <translation>Выберите, что подстраивать. Для каждой подстройки нужен код метрологического доступа прибора.</translation>
    </message>
    <message>
        <source>Output current 4-20 mA</source>
        <translation>Выходной ток 4-20 мА</translation>
    </message>
    <message>
        <source>Resistance input</source>
        <translation>Вход сопротивления</translation>
    </message>
    <message>
        <source>Voltage input (thermocouple)</source>
        <translation>Вход напряжения (термопара)</translation>
    </message>
    <message>
        <source>Temperature of the free ends</source>
        <translation>Температура свободных концов</translation>
    </message>
    <message>
        <source>Metrology access code</source>
        <translation>Код метрологического доступа</translation>
    </message>
    <message>
        <source>The code that opens the adjustment of the device (command 190)</source>
        <translation>Код, открывающий подстройку прибора (команда 190)</translation>
    </message>
    <message>
        <source>Open access</source>
        <translation>Открыть доступ</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Set the current, measure it with a reference meter, enter the measured value and adjust.</source>
        <translation>Установите ток, измерьте его образцовым прибором, введите измеренное значение и подстройте.</translation>
    </message>
    <message>
        <source>Set 4 mA</source>
        <translation>Установить 4 мА</translation>
    </message>
    <message>
        <source>mA</source>
        <translation>мА</translation>
    </message>
    <message>
        <source>Adjust 4 mA</source>
        <translation>Подстроить 4 мА</translation>
    </message>
    <message>
        <source>Write the measured current (command 45)</source>
        <translation>Записать измеренный ток (команда 45)</translation>
    </message>
    <message>
        <source>Set 20 mA</source>
        <translation>Установить 20 мА</translation>
    </message>
    <message>
        <source>Adjust 20 mA</source>
        <translation>Подстроить 20 мА</translation>
    </message>
    <message>
        <source>Write the measured current (command 46)</source>
        <translation>Записать измеренный ток (команда 46)</translation>
    </message>
    <message>
        <source>Complete adjustment</source>
        <translation>Завершить подстройку</translation>
    </message>
    <message>
        <source>Release the current, close metrology access and leave the adjustment</source>
        <translation>Освободить ток, закрыть метрологический доступ и выйти из подстройки</translation>
    </message>
    <message>
        <source>Apply the reference voltage to the input. Read what the device measures, enter the reference value and adjust.</source>
        <translation>Подайте на вход образцовое напряжение. Прочитайте, что измеряет прибор, введите образцовое значение и подстройте.</translation>
    </message>
    <message>
        <source>Read from device</source>
        <translation>Прочитать из прибора</translation>
    </message>
    <message>
        <source>What the device measures now (command 174)</source>
        <translation>Что прибор измеряет сейчас (команда 174)</translation>
    </message>
    <message>
        <source>mV</source>
        <translation>мВ</translation>
    </message>
    <message>
        <source>Adjust</source>
        <translation>Подстроить</translation>
    </message>
    <message>
        <source>Write the reference value (command 171)</source>
        <translation>Записать образцовое значение (команда 171)</translation>
    </message>
    <message>
        <source>Close metrology access and leave the adjustment</source>
        <translation>Закрыть метрологический доступ и выйти из подстройки</translation>
    </message>
    <message>
        <source>Apply the reference resistance to the input. Read what the device measures, enter the reference value and adjust.</source>
        <translation>Подключите ко входу образцовое сопротивление. Прочитайте, что измеряет прибор, введите образцовое значение и подстройте.</translation>
    </message>
    <message>
        <source>Ohm</source>
        <translation>Ом</translation>
    </message>
    <message>
        <source>Write the reference value (command 172)</source>
        <translation>Записать образцовое значение (команда 172)</translation>
    </message>
    <message>
        <source>Apply the reference temperature to the input. Read what the device measures, enter the reference value and adjust.</source>
        <translation>Задайте датчику образцовую температуру. Прочитайте, что измеряет прибор, введите образцовое значение и подстройте.</translation>
    </message>
    <message>
        <source>°C</source>
        <translation>°C</translation>
    </message>
    <message>
        <source>Write the reference value (command 173)</source>
        <translation>Записать образцовое значение (команда 173)</translation>
    </message>
    <message>
        <source>Read configuration</source>
        <translation>Читать конфигурацию</translation>
    </message>
    <message>
        <source>Read the input, the range and the sensor limits from the device</source>
        <translation>Прочитать из прибора вход, диапазон и пределы датчика</translation>
    </message>
    <message>
        <source>Write configuration</source>
        <translation>Записать конфигурацию</translation>
    </message>
    <message>
        <source>Write the changed (blue) settings into the device</source>
        <translation>Записать изменённые (синие) настройки в прибор</translation>
    </message>
    <message>
        <source>A double click hides the prompt</source>
        <translation>Двойной щелчок скрывает подсказку</translation>
    </message>
    <message>
        <source>It is necessary to set the device to work with a resistance thermometer</source>
        <translation>Необходимо настроить прибор на работу с термометром сопротивления</translation>
    </message>
    <message>
        <source>It is necessary to set the device to work with a thermocouple</source>
        <translation>Необходимо настроить прибор на работу с термопарой</translation>
    </message>
    <message>
        <source>It is necessary to set the device to work with sensor of free ends of the thermocouple</source>
        <translation>Необходимо настроить прибор на работу с датчиком свободных концов термопары</translation>
    </message>
    <message>
        <source>The device needs to change
the position of the jumper</source>
        <translation>В приборе нужно изменить
положение перемычки</translation>
    </message>
    <message>
        <source>Thermistor</source>
        <translation>Термометр сопротивления</translation>
    </message>
    <message>
        <source>Thermocouple</source>
        <translation>Термопара</translation>
    </message>
    <message>
        <source>Sensor T free ends of the thermocouple</source>
        <translation>Датчик T свободных концов термопары</translation>
    </message>
    <message>
        <source>A-1 (TBP)</source>
        <translation>А-1 (ТВР)</translation>
    </message>
    <message>
        <source>A-2 (TBP)</source>
        <translation>А-2 (ТВР)</translation>
    </message>
    <message>
        <source>A-3 (TBP)</source>
        <translation>А-3 (ТВР)</translation>
    </message>
    <message>
        <source>B (TPR)</source>
        <translation>B (ТПР)</translation>
    </message>
    <message>
        <source>E (TXK)</source>
        <translation>E (ТХКн)</translation>
    </message>
    <message>
        <source>J (TJK)</source>
        <translation>J (ТЖК)</translation>
    </message>
    <message>
        <source>K (TXA)</source>
        <translation>K (ТХА)</translation>
    </message>
    <message>
        <source>L (TXK)</source>
        <translation>L (ТХК)</translation>
    </message>
    <message>
        <source>M (TMK)</source>
        <translation>M (ТМК)</translation>
    </message>
    <message>
        <source>N (THH)</source>
        <translation>N (ТНН)</translation>
    </message>
    <message>
        <source>R (TPP)</source>
        <translation>R (ТПП)</translation>
    </message>
    <message>
        <source>S (TPP)</source>
        <translation>S (ТПП)</translation>
    </message>
    <message>
        <source>T (TMK)</source>
        <translation>T (ТМКн)</translation>
    </message>
    <message>
        <source>Pt  (TCP)</source>
        <translation>Pt  (ТСП)</translation>
    </message>
    <message>
        <source>Pt&apos; (TCP)</source>
        <translation>Pt&apos; (ТСП)</translation>
    </message>
    <message>
        <source>Cu  (TCM)</source>
        <translation>Cu  (ТСМ)</translation>
    </message>
    <message>
        <source>Cu&apos; (TCM)</source>
        <translation>Cu&apos; (ТСМ)</translation>
    </message>
    <message>
        <source>Ni (TCH)</source>
        <translation>Ni (ТСН)</translation>
    </message>
    <message>
        <source>2 or 4 wire&apos;s</source>
        <translation>2- или 4-проводная</translation>
    </message>
    <message>
        <source>3 wire&apos;s</source>
        <translation>3-проводная</translation>
    </message>
    <message>
        <source>off</source>
        <translation>выкл</translation>
    </message>
    <message>
        <source>on</source>
        <translation>вкл</translation>
    </message>
    <message>
        <source>write protection is enabled</source>
        <translation>включена защита от записи</translation>
    </message>
    <message>
        <source>Read device configuration</source>
        <translation>Чтение конфигурации прибора</translation>
    </message>
    <message>
        <source>Primary Variable value = %1
 Do you want to write correction point 1 = %2?</source>
        <translation>Значение первичной переменной = %1
 Записать точку коррекции 1 = %2?</translation>
    </message>
    <message>
        <source>Primary Variable value = %1
 Do you want to write correction point 2 = %2?</source>
        <translation>Значение первичной переменной = %1
 Записать точку коррекции 2 = %2?</translation>
    </message>
    <message>
        <source>Write correction point 1</source>
        <translation>Запись точки коррекции 1</translation>
    </message>
    <message>
        <source>Program settings do not match the settings of the device! [%1/%2]</source>
        <translation>Настройки программы не совпадают с настройками прибора! [%1/%2]</translation>
    </message>
    <message>
        <source>Reading metrological parameters</source>
        <translation>Чтение метрологических параметров</translation>
    </message>
    <message>
        <source>Saving metrological parameters</source>
        <translation>Сохранение метрологических параметров</translation>
    </message>
</context>
<context>
    <name>Tag</name>
    <message>
        <source>Invalid device type of tag &apos;%1&apos;</source>
        <translation>Неверный тип прибора для тега &apos;%1&apos;</translation>
    </message>
</context>
<context>
    <name>TestDeviceDialog</name>
    <message>
        <source>Device test</source>
        <translation>Тест устройства</translation>
    </message>
    <message>
        <source>Test:</source>
        <translation>Тест:</translation>
    </message>
    <message>
        <source>Choose the folder of your own test templates (*.tpl)</source>
        <translation>Выбрать папку со своими шаблонами тестов (*.tpl)</translation>
    </message>
    <message>
        <source>Open From...</source>
        <translation>Открыть из...</translation>
    </message>
    <message>
        <source>Save a copy of the test template</source>
        <translation>Сохранить копию шаблона теста</translation>
    </message>
    <message>
        <source>Save As...</source>
        <translation>Сохранить как...</translation>
    </message>
    <message>
        <source>Check All</source>
        <translation>Отметить все</translation>
    </message>
    <message>
        <source>Uncheck All</source>
        <translation>Снять все</translation>
    </message>
    <message>
        <source>Test rounds:</source>
        <translation>Циклов теста:</translation>
    </message>
    <message>
        <source>How many times the ticked commands run, one round after the other</source>
        <translation>Сколько раз выполнить отмеченные команды, цикл за циклом</translation>
    </message>
    <message>
        <source>Pause:</source>
        <translation>Пауза:</translation>
    </message>
    <message>
        <source>The wait after an exchange whose command names no wait of its own</source>
        <translation>Ожидание после обмена, если у команды нет своей задержки</translation>
    </message>
    <message>
        <source> ms</source>
        <translation> мс</translation>
    </message>
    <message>
        <source>Start</source>
        <translation>Старт</translation>
    </message>
    <message>
        <source>Go on with an interrupted test from the command it stopped at</source>
        <translation>Продолжить прерванный тест с команды, на которой он остановился</translation>
    </message>
    <message>
        <source>Continue</source>
        <translation>Продолжить</translation>
    </message>
    <message>
        <source>Save Report...</source>
        <translation>Сохранить отчёт...</translation>
    </message>
    <message>
        <source>Cmd</source>
        <translation>Ком.</translation>
    </message>
    <message>
        <source>Context</source>
        <translation>Назначение</translation>
    </message>
    <message>
        <source>Cycles</source>
        <translation>Повторы</translation>
    </message>
    <message>
        <source>Values</source>
        <translation>Значения</translation>
    </message>
    <message>
        <source>Error count</source>
        <translation>Ошибок</translation>
    </message>
    <message>
        <source>Error text</source>
        <translation>Текст ошибки</translation>
    </message>
    <message>
        <source>Test of the device %1</source>
        <translation>Тест устройства %1</translation>
    </message>
    <message>
        <source>The folder of tests %1 does not exist.</source>
        <translation>Папка тестов %1 не существует.</translation>
    </message>
    <message>
        <source>Failed to load test %1</source>
        <translation>Не удалось загрузить тест %1</translation>
    </message>
    <message>
        <source>command %1</source>
        <translation>команда %1</translation>
    </message>
    <message>
        <source>Cancel</source>
        <translation>Отмена</translation>
    </message>
    <message>
        <source>Test round %1...</source>
        <translation>Цикл теста %1...</translation>
    </message>
    <message>
        <source>The test did not run: the device is not the one it was written for.</source>
        <translation>Тест не выполнен: устройство не то, для которого он написан.</translation>
    </message>
    <message>
        <source>###### Test round %1 goes on ######
</source>
        <translation>###### Цикл теста %1 продолжается ######
</translation>
    </message>
    <message>
        <source>The test was interrupted; Continue goes on from command %1.</source>
        <translation>Тест прерван; «Продолжить» продолжит его с команды %1.</translation>
    </message>
    <message>
        <source>Total round errors: %1
</source>
        <translation>Всего ошибок в цикле: %1
</translation>
    </message>
    <message>
        <source>Total test errors: %1
</source>
        <translation>Всего ошибок теста: %1
</translation>
    </message>
    <message>
        <source>No errors.</source>
        <translation>Ошибок нет.</translation>
    </message>
    <message>
        <source>%1 errors: %2</source>
        <translation>%1 ошибок: %2</translation>
    </message>
    <message>
        <source>###### Test round %1 ######
</source>
        <translation>###### Цикл теста %1 ######
</translation>
    </message>
    <message>
        <source>Test command %1 - %2 (%3 cycles)...</source>
        <translation>Тест команды %1 - %2 (повторов: %3)...</translation>
    </message>
    <message>
        <source>readDevice(%1) %2</source>
        <translation>readDevice(%1) %2</translation>
    </message>
    <message>
        <source>--- cycle: %1 ---</source>
        <translation>--- повтор: %1 ---</translation>
    </message>
    <message>
        <source>values - [%1]</source>
        <translation>значения - [%1]</translation>
    </message>
    <message>
        <source>Test command %1 - %2...
%3</source>
        <translation>Тест команды %1 - %2...
%3</translation>
    </message>
    <message>
        <source>writeDevice(%1)</source>
        <translation>writeDevice(%1)</translation>
    </message>
    <message>
        <source>when writing a values [%1], an error occurred:</source>
        <translation>при записи значений [%1] произошла ошибка:</translation>
    </message>
    <message>
        <source>*** check -&gt; readDevice(%1)</source>
        <translation>*** проверка -&gt; readDevice(%1)</translation>
    </message>
    <message>
        <source>Test command %1 - %2...
check result by command %3</source>
        <translation>Тест команды %1 - %2...
проверка результата командой %3</translation>
    </message>
    <message>
        <source>Checking cmd %1: %2</source>
        <translation>Проверка командой %1: %2</translation>
    </message>
    <message>
        <source>%1 validation error: send:%2 recv:%3</source>
        <translation>%1 ошибка проверки: отправлено:%2 получено:%3</translation>
    </message>
    <message>
        <source>The port %1 is closed.</source>
        <translation>Порт %1 закрыт.</translation>
    </message>
    <message>
        <source>Test of command %1 %2.</source>
        <translation>Тест команды %1 %2.</translation>
    </message>
    <message>
        <source>was interrupted</source>
        <translation>прерван</translation>
    </message>
    <message>
        <source>completed</source>
        <translation>завершён</translation>
    </message>
    <message>
        <source>total command %1 errors: %2
</source>
        <translation>всего ошибок команды %1: %2
</translation>
    </message>
    <message>
        <source>Checking the device against the test...</source>
        <translation>Проверка соответствия устройства тесту...</translation>
    </message>
    <message>
        <source>%1: the test expects %2, the device has %3</source>
        <translation>%1: тест ожидает %2, у устройства %3</translation>
    </message>
    <message>
        <source>nothing known</source>
        <translation>неизвестно</translation>
    </message>
    <message>
        <source>The device is the one the test was written for.</source>
        <translation>Устройство соответствует тесту.</translation>
    </message>
    <message>
        <source>The device does not match the test:
%1

Run the test anyway?</source>
        <translation>Устройство не соответствует тесту:
%1

Всё равно выполнить тест?</translation>
    </message>
    <message>
        <source>unknown error</source>
        <translation>неизвестная ошибка</translation>
    </message>
    <message>
        <source>validation error</source>
        <translation>ошибка проверки</translation>
    </message>
    <message>
        <source>validation errors</source>
        <translation>ошибки проверки</translation>
    </message>
    <message>
        <source>Save Report</source>
        <translation>Сохранить отчёт</translation>
    </message>
    <message>
        <source>Text files (*.txt);;All files (*)</source>
        <translation>Текстовые файлы (*.txt);;Все файлы (*)</translation>
    </message>
    <message>
        <source>Device test report</source>
        <translation>Отчёт о тесте устройства</translation>
    </message>
    <message>
        <source>Test: %1 (%2)</source>
        <translation>Тест: %1 (%2)</translation>
    </message>
    <message>
        <source>Device: %1, template %2, polling address %3, long address %4, line %5</source>
        <translation>Устройство: %1, шаблон %2, адрес опроса %3, длинный адрес %4, линия %5</translation>
    </message>
    <message>
        <source>Started: %1</source>
        <translation>Начат: %1</translation>
    </message>
    <message>
        <source>The report could not be written to %1:
%2</source>
        <translation>Не удалось записать отчёт в %1:
%2</translation>
    </message>
    <message>
        <source>Path for tests</source>
        <translation>Путь к тестам</translation>
    </message>
    <message>
        <source>The test template file does not exist!</source>
        <translation>Файл шаблона теста не существует!</translation>
    </message>
    <message>
        <source>Reports (*.tpl);;All files (*.*)</source>
        <translation>Отчёты (*.tpl);;Все файлы (*.*)</translation>
    </message>
    <message>
        <source>Error copying the test template file</source>
        <translation>Ошибка копирования файла шаблона теста</translation>
    </message>
    <message>
        <source>There is no test for the template %1.</source>
        <translation>Для шаблона %1 тестов нет.</translation>
    </message>
</context>
<context>
    <name>TestTemplate</name>
    <message>
        <source>cannot open the file: %1</source>
        <translation>не удалось открыть файл: %1</translation>
    </message>
    <message>
        <source>line %1: %2</source>
        <translation>строка %1: %2</translation>
    </message>
    <message>
        <source>&quot;%1&quot; is not a text</source>
        <translation>&quot;%1&quot; — не текст</translation>
    </message>
    <message>
        <source>it names no &quot;template&quot;</source>
        <translation>в нём нет &quot;template&quot;</translation>
    </message>
    <message>
        <source>it has no &quot;device&quot; object</source>
        <translation>в нём нет объекта &quot;device&quot;</translation>
    </message>
    <message>
        <source>&quot;commands&quot; of &quot;device&quot; is not a list of commands</source>
        <translation>&quot;commands&quot; в &quot;device&quot; — не список команд</translation>
    </message>
    <message>
        <source>command %1: not an object</source>
        <translation>команда %1: не объект</translation>
    </message>
    <message>
        <source>command %1: </source>
        <translation>команда %1: </translation>
    </message>
    <message>
        <source>&quot;number&quot; must be a HART command from 0 to 255</source>
        <translation>&quot;number&quot; должен быть командой HART от 0 до 255</translation>
    </message>
    <message>
        <source>&quot;%1&quot; must be a whole number from %2 to %3</source>
        <translation>&quot;%1&quot; должно быть целым числом от %2 до %3</translation>
    </message>
    <message>
        <source>&quot;description&quot; is not a text</source>
        <translation>&quot;description&quot; — не текст</translation>
    </message>
    <message>
        <source>&quot;print&quot; must be a list of value names</source>
        <translation>&quot;print&quot; должен быть списком имён значений</translation>
    </message>
    <message>
        <source>&quot;close_port&quot; must be true or false</source>
        <translation>&quot;close_port&quot; должен быть true или false</translation>
    </message>
    <message>
        <source>&quot;parameters&quot; must give each value name a list of values, one for each cycle</source>
        <translation>&quot;parameters&quot; должен давать каждому имени значения список значений, по одному на повтор</translation>
    </message>
</context>
</TS>
