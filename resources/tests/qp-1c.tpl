{
    "name": "QP-1C: identity, line settings and configuration",
    "template": "QP-1C",
    "description": "Reads the identity, the range, the configuration and the temperature correction of the pressure converter, polls its process values, then writes the polling address, the tag and the damping and reads each back. It expects the converter at polling address 1 with tag PT-102 and damping 0.5 s, and leaves it so.",
    "device": {
        "polling_address": 1,
        "current_loop_mode": 1,
        "tag": "PT-102",
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
                "number": 135,
                "print": [
                    "decimal_point_position",
                    "average_count",
                    "calibrate_unit_code",
                    "line_points_count"
                ],
                "delay": 100
            },
            {
                "number": 139,
                "print": [
                    "temper_correction_mode"
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
                        1
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
                        "PT-102T",
                        "PT-102"
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
