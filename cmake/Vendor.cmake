# Who builds and sells this program; set these when configuring a build to ship. The names below are reserved
# examples without servers; without a public key no licence is needed.
set(VANTREL_API_SERVER "https://api.vantrel.example" CACHE STRING "The vendor's API server, without a slash at the end")
set(VANTREL_WEBSITE "https://www.vantrel.example" CACHE STRING "The vendor's website, without a slash at the end")
set(VANTREL_LICENSE_PUBLIC_KEY "" CACHE STRING "The Ed25519 key that licences are signed with: 64 hexadecimal digits, or empty")

set(VANTREL_UPDATE_FEED "" CACHE STRING "The address of the macOS updater's feed, or empty for no updater")
set(VANTREL_UPDATE_PUBLIC_KEY "" CACHE STRING "The Ed25519 key that macOS updates are signed with, in base64, or empty")

string(LENGTH "${VANTREL_LICENSE_PUBLIC_KEY}" keyLength)
if(NOT VANTREL_LICENSE_PUBLIC_KEY MATCHES "^[0-9a-fA-F]*$" OR NOT (keyLength EQUAL 0 OR keyLength EQUAL 64))
    message(FATAL_ERROR "VANTREL_LICENSE_PUBLIC_KEY must be 64 hexadecimal digits or empty")
endif()
if(NOT VANTREL_UPDATE_FEED MATCHES "^(https://[^<&\"]+)?$" OR NOT VANTREL_UPDATE_PUBLIC_KEY MATCHES "^([A-Za-z0-9+/]+=*)?$")
    message(FATAL_ERROR "VANTREL_UPDATE_FEED must be an https address and VANTREL_UPDATE_PUBLIC_KEY in base64, or both empty")
endif()
foreach(server VANTREL_API_SERVER VANTREL_WEBSITE)
    if(NOT ${server} MATCHES "^https://[^/\"]+$")
        message(FATAL_ERROR "${server} must be an address like https://api.vantrel.example")
    endif()
endforeach()

set(VANTREL_VENDOR_SOURCE "${CMAKE_BINARY_DIR}/generated/Vendor.cpp")
configure_file("${CMAKE_CURRENT_LIST_DIR}/Vendor.cpp.in" "${VANTREL_VENDOR_SOURCE}" @ONLY)
