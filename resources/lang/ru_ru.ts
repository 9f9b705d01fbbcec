<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE TS>
<TS version="2.1" language="ru_RU">
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
        <name>QObject</name>
        <message>
            <source>Calvane: HART configurator</source>
            <translation>Calvane: конфигуратор HART</translation>
        </message>
        <message>
            <source>Calvane</source>
            <translation>Calvane</translation>
        </message>
    </context>
</TS>
