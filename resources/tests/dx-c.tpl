{
    "name": "DX-C: identity and configuration (reads only)",
    "template": "DX-C",
    "description": "Reads the identity, the range and the configuration of the temperature converter and polls its process values. It writes nothing.",
    "device": {
        "commands": [
            {
                "number": 0,
                "description": "Identification",
                "print": [
                    "manufacturer_code",
                    "device_type_code",
                    "universal_cmd_version",
                    "deviceID"
                ],
                "delay": 100
            },
            {
                "number": 13,
                "print": [
                    "tag",
                    "descriptor",
                    "date"
                ],
                "delay": 100
            },
            {
                "number": 15,
                "print": [
                    "range_unit_code",
                    "range_min",
                    "range_max",
                    "damping_time"
                ],
                "delay": 100
            },
            {
                "number": 130,
                "print": [
                    "input_signal_type",
                    "sensor_type",
                    "connection_schema",
                    "decimal_point_position",
                    "average_count"
                ],
                "delay": 100
            },
            {
                "number": 3,
                "description": "Process values",
                "cycles": 5,
                "delay": 200,
                "print": [
                    "PV",
                    "PV_unit_code",
                    "output_current"
                ]
            },
            {
                "number": 48,
                "description": "Additional status",
                "print": [
                    "device_specific_status",
                    "extended_status"
                ],
                "delay": 100
            }
        ]
    }
}
