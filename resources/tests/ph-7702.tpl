{
    "name": "pH-7702: identity, line settings and configuration",
    "template": "pH-7702",
    "description": "Reads the identity, the range, the electrode and temperature settings and the graduation of the pH meter, polls its process values, then writes the polling address, the tag and the damping and reads each back. It expects the meter at polling address 2 with tag AT-103 and damping 0.5 s, and leaves it so.",
    "device": {
        "polling_address": 2,
        "current_loop_mode": 1,
        "tag": "AT-103",
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
                    "ei_isopotential_point",
                    "steepness",
                    "electrode_diag"
                ],
                "delay": 100
            },
            {
                "number": 134,
                "print": [
                    "t_measurement_mode",
                    "ts_type"
                ],
                "delay": 100
            },
            {
                "number": 150,
                "print": [
                    "current_grd_type"
                ],
                "delay": 100
            },
            {
                "number": 152,
                "print": [
                    "ei_min",
                    "ei_max",
                    "s_min",
                    "s_max"
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
                        2
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
                        "AT-103T",
                        "AT-103"
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
