{
    "name": "TCV-C: identity, line settings and configuration",
    "template": "TCV-C",
    "description": "Reads the identity, the range and the configuration of the temperature converter, polls its process values, then writes the polling address, the tag and the damping and reads each back. It expects the converter at polling address 0 with tag TT-101 and damping 0.5 s, and leaves it so.",
    "device": {
        "polling_address": 0,
        "current_loop_mode": 1,
        "tag": "TT-101",
        "damping_time": 0.5,
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
                "number": 150,
                "print": [
                    "input_signal_type",
                    "sensor_type"
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
            },
            {
                "number": 6,
                "description": "Polling address: write and read back",
                "cycles": 3,
                "parameters": {
                    "polling_address": [
                        15,
                        14,
                        0
                    ],
                    "current_loop_mode": [
                        0,
                        0,
                        1
                    ]
                },
                "read_cmd": 7,
                "read_delay": 50,
                "delay": 100,
                "print": [
                    "polling_address",
                    "current_loop_mode"
                ]
            },
            {
                "number": 18,
                "description": "Tag: write and read back",
                "cycles": 2,
                "parameters": {
                    "tag": [
                        "TT-101T",
                        "TT-101"
                    ]
                },
                "read_cmd": 13,
                "read_delay": 50,
                "delay": 100,
                "print": [
                    "tag",
                    "descriptor",
                    "date"
                ]
            },
            {
                "number": 34,
                "description": "Damping: write and read back",
                "cycles": 3,
                "parameters": {
                    "damping_time": [
                        2.5,
                        0.3,
                        0.5
                    ]
                },
                "read_cmd": 15,
                "read_delay": 50,
                "delay": 100,
                "print": [
                    "damping_time"
                ]
            }
        ]
    }
}
