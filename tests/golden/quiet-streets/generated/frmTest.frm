VERSION 5.00
Object = "{831FDD16-0C5C-11D2-A9FC-0000F8754DA1}#2.0#0"; "MSCOMCTL.OCX"
Begin VB.Form frmTest 
   AutoRedraw      =   -1  'True
   BorderStyle     =   3  'Fixed Dialog
   Caption         =   "Test Mapping"
   BeginProperty Font 
      Name            =   "Tahoma"
      Size            =   8.25
      Charset         =   0
      Weight          =   400
      Underline       =   0   'False
      Italic          =   0   'False
      Strikethrough   =   0   'False
   EndProperty
   LinkTopic       =   "Form1"
   MaxButton       =   0   'False
   MinButton       =   0   'False
   Width           =   6300
   ScaleWidth      =   6210
   Height          =   4185
   ScaleHeight     =   3810
   ShowInTaskbar   =   0   'False
   StartUpPosition =   2  'CenterScreen
   Begin VB.CommandButton cmdConnect 
      Caption         =   "Connect To Datasource"
      Height          =   315
      Left            =   240
      TabIndex        =   0
      Top             =   225
      Width           =   2205
   End
   Begin VB.CommandButton cmdTest 
      Caption         =   "Test Code"
      Height          =   315
      Left            =   240
      TabIndex        =   0
      Top             =   625
      Width           =   2205
   End
   Begin VB.Label lblStatus 
      AutoSize        =   -1  'True
      BackStyle       =   0  'Transparent
      Caption         =   "Current Status: Not Connected"
      Height          =   195
      Left            =   2685
      TabIndex        =   1
      Top             =   240
      Width           =   2250
   End
End
Attribute VB_Name = "frmTest"
Attribute VB_GlobalNameSpace = False
Attribute VB_Creatable = False
Attribute VB_PredeclaredId = True
Attribute VB_Exposed = False
Option Explicit
Private Auto As New Auto
Private Region As Region
Private Regions As New Regions
Private WithEvents EvtPostbox As Postbox
Private Postbox As Postbox

Private Sub Form_Load
    Set Region = Auto.Region
    Set EvtPostbox = Auto.Postbox
    Set Postbox = Auto.Postbox
End Sub

Private Sub cmdConnect_Click()
    If Auto.IsConnected = False Then
        If Auto.Connect = False Then
            lblStatus = "Current Status: Not Connected"
        Else
            lblStatus = "Current Status: Connected to DataSource"
        End If
    End If
End Sub

Private Sub cmdTest_Click()
    msgbox "Place some test code here"
End Sub

