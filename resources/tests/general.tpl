{
    "name": "General: universal commands",
    "template": "General",
    "description": "Runs the universal read commands of any HART device, then writes the polling address, the tag, the message and the damping and reads each back; the line is closed at the end. It expects the device at polling address 3 with tag FT-104, damping 0.5 s and the message of the demo line, and leaves it so.",
    "device": {
        "polling_address": 3,
        "current_loop_mode": 1,
        "tag": "FT-104",
        "damping_time": 0.5,
        "message": "DEMO GENERIC HART 7 DEVICE",
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
                "number": 1,
                "cycles": 3,
                "print": [
                    "PV",
                    "PV_unit_code"
                ],
                "delay": 100
            },
            {
                "number": 2,
                "print": [
                    "output_current",
                    "output_current_%"
                ],
                "delay": 100
            },
            {
                "number": 7,
                "print": [
                    "polling_address",
                    "current_loop_mode"
                ],
                "delay": 100
            },
            {
                "number": 8,
                "print": [
                    "PV_class_code",
                    "SV_class_code"
                ],
                "delay": 100
            },
            {
                "number": 12,
                "print": [
                    "message"
                ],
                "delay": 100
            },
            {
                "number": 14,
                "print": [
                    "sensor_number",
                    "sensor_range_min",
                    "sensor_range_max"
                ],
                "delay": 100
            },
            {
                "number": 16,
                "print": [
                    "final_assembly_number"
                ],
                "delay": 100
            },
            {
                "number": 20,
                "print": [
                    "long_tag"
                ],
                "delay": 100
            },
            {
                "number": 50,
                "print": [
                    "PV_dev_variable_code",
                    "SV_dev_variable_code"
                ],
                "delay": 100
            },
            {
                "number": 3,
                "description": "Process values",
                "cycles": 3,
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
                        3
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
                        "FT-104T",
                        "FT-104"
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
            },
            {
                "number": 17,
                "description": "Message: write and read back",
                "cycles": 2,
                "parameters": {
                    "message": [
                        "TEST MESSAGE OF THE CALVANE RUN",
                        "DEMO GENERIC HART 7 DEVICE"
                    ]
                },
                "read_cmd": 12,
                "read_delay": 50,
                "delay": 100,
                "print": [
                    "message"
                ],
                "close_port": true
            }
        ]
    }
}
